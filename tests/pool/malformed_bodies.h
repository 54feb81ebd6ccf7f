#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace orvane::test {

/// `body` with one more member in the innermost of its objects, one that no record names.
inline std::string withUnreadMember(std::string_view body, const std::string& value) {
  std::string changed(body);
  return changed.insert(body.rfind('{') + 1, "\"unread\":" + value + ",");
}

/// What no decoder takes, made from a body that its decoder does take: cut off after every byte,
/// followed by more, damaged inside, too deep, and things that are no document at all.
inline std::vector<std::string> malformedBodies(const std::string& body) {
  constexpr std::size_t levels = 100'000;
  const std::string deepArray = std::string(levels, '[') + std::string(levels, ']');
  std::vector<std::string> bodies{body + ",",
                                  body + body,
                                  body + '\0',
                                  '\0' + body,
                                  deepArray,
                                  std::string(levels, '['),
                                  std::string(levels, '{'),
                                  "null",
                                  "true",
                                  "1",
                                  "\"btc\"",
                                  "<html></html>"};
  for (const std::string& value :
       {deepArray, std::string("\"\xC3\""), std::string("\"\xED\xA0\x80\""), std::string("1e400"),
        std::string("NaN"), std::string("01"), std::string("\"\n\"")}) {
    bodies.push_back(withUnreadMember(body, value));
  }
  for (std::size_t size = 0; size < body.size(); ++size) {
    bodies.push_back(body.substr(0, size));
  }
  return bodies;
}

/// `body` with the value of `member` (`"name":value`) replaced by each of `values`.
inline std::vector<std::string> withMember(std::string_view body, std::string_view member,
                                           const std::vector<std::string>& values) {
  const std::size_t start = body.find(member);
  const std::size_t value = start + member.find(':') + 1;
  std::vector<std::string> bodies;
  bodies.reserve(values.size());
  for (const std::string& replacement : values) {
    std::string changed(body);
    bodies.push_back(changed.replace(value, start + member.size() - value, replacement));
  }
  return bodies;
}

/// Expects that `decode` gives nothing for each of `bodies`.
template <class Decoder>
void expectNothingFrom(const std::vector<std::string>& bodies, const Decoder& decode) {
  for (const std::string& body : bodies) {
    EXPECT_FALSE(decode(body)) << body.substr(0, 200);
  }
}

}  // namespace orvane::test
