#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>
#include <gtest/gtest.h>

namespace orvane::test {
/// What a member of a document must be. `array` and `object` are required.
enum class MemberType {
  text,
  number,
  integer,
  boolean,
  array,
  object,
  optionalText,
  optionalNumber,
  optionalInteger
};

struct MemberValues {
  std::vector<std::string_view> accepted;
  std::vector<std::string_view> refused;
};

inline const std::map<MemberType, MemberValues> memberValues{
    {MemberType::text, {{R"("")"}, {"null", "1", "[]"}}},
    {MemberType::number, {{"1.5", "-1e3"}, {"null", R"("1")", "true"}}},
    {MemberType::integer, {{"-9223372036854775808"}, {"null", R"("1")", "1.5"}}},
    {MemberType::boolean, {{"true"}, {"null", "1", R"("true")"}}},
    {MemberType::array, {{"[]"}, {"null", "{}", "[1]", "[null]"}}},
    {MemberType::object, {{}, {"null", "[]", "{}", "1"}}},
    {MemberType::optionalText, {{"null", R"("")"}, {"1", "[]"}}},
    {MemberType::optionalNumber, {{"null", "1.5"}, {R"("1")", "true"}}},
    {MemberType::optionalInteger, {{"null", "1e3"}, {R"("1")", "1.5", "9223372036854775808"}}},
};

/// The value of a member, in place of which `expectMembers` puts others.
struct DocumentMember {
  std::string_view name;
  std::string_view value;
  MemberType type;
};

/// Expects that `decode` reads `body`, and takes it with exactly those values for each member that
/// its type allows.
template <class Document>
void expectMembers(std::optional<Document> (*decode)(std::string_view body),
                   const std::string& body, const std::vector<DocumentMember>& members) {
  ASSERT_TRUE(decode(body)) << body;
  for (const auto& [name, value, type] : members) {
    const std::string before = "\"" + std::string(name) + "\":";
    ASSERT_TRUE(body.contains(before + std::string(value))) << name;
    const std::size_t start = body.find(before + std::string(value)) + before.size();
    const auto with = [&](std::string_view other) {
      return std::string(body).replace(start, value.size(), other);
    };
    for (const std::string_view accepted : memberValues.at(type).accepted) {
      EXPECT_TRUE(decode(with(accepted))) << name << ": " << accepted;
    }
    for (const std::string_view refused : memberValues.at(type).refused) {
      EXPECT_FALSE(decode(with(refused))) << name << ": " << refused;
    }
  }
}
}  // namespace orvane::test
