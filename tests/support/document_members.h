#pragma once

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

/// The value of a member, in place of which `expectMembers` puts others.
struct DocumentMember {
  std::string_view name;
  std::string_view value;
  MemberType type;
};

struct MemberValues {
  std::vector<std::string_view> accepted;
  std::vector<std::string_view> refused;
};

inline MemberValues valuesOf(MemberType type) {
  switch (type) {
    case MemberType::text:
      return {.accepted = {R"("")"}, .refused = {"null", "1", "[]"}};
    case MemberType::number:
      return {.accepted = {"1.5", "-1e3"}, .refused = {"null", R"("1")", "true"}};
    case MemberType::integer:
      return {.accepted = {"-9223372036854775808"}, .refused = {"null", R"("1")", "1.5"}};
    case MemberType::boolean:
      return {.accepted = {"true"}, .refused = {"null", "1", R"("true")"}};
    case MemberType::array:
      return {.accepted = {"[]"}, .refused = {"null", "{}", "[1]", "[null]"}};
    case MemberType::object:
      return {.accepted = {}, .refused = {"null", "[]", "{}", "1"}};
    case MemberType::optionalText:
      return {.accepted = {"null", R"("")"}, .refused = {"1", "[]"}};
    case MemberType::optionalNumber:
      return {.accepted = {"null", "1.5"}, .refused = {R"("1")", "true"}};
    case MemberType::optionalInteger:
      return {.accepted = {"null", "1e3"}, .refused = {R"("1")", "1.5", "9223372036854775808"}};
  }
  return {};
}

/// Expects that `decode` reads `body`, and takes it with exactly those values for each member that
/// its type allows.
template <class Document>
void expectMembers(std::optional<Document> (*decode)(std::string_view body),
                   const std::string& body, const std::vector<DocumentMember>& members) {
  ASSERT_TRUE(decode(body)) << body;
  for (const DocumentMember& member : members) {
    const std::string written = "\"" + std::string(member.name) + "\":" + std::string(member.value);
    ASSERT_TRUE(body.contains(written)) << written;
    const auto with = [&](std::string_view value) {
      std::string changed = body;
      const std::size_t start = body.find(written) + member.name.size() + 3;
      return changed.replace(start, member.value.size(), value);
    };
    const MemberValues values = valuesOf(member.type);
    for (const std::string_view value : values.accepted) {
      EXPECT_TRUE(decode(with(value))) << member.name << ": " << value;
    }
    for (const std::string_view value : values.refused) {
      EXPECT_FALSE(decode(with(value))) << member.name << ": " << value;
    }
  }
}

}  // namespace orvane::test
