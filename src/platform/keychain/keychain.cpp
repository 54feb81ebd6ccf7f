#include "platform/keychain/keychain.h"
#include <algorithm>

namespace orvane {
namespace {
std::string_view withoutBlanksAround(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) { return {}; }
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}
}  // namespace

std::vector<std::string> accessGroupsFromSetting(std::string_view semicolonSeparated) {
  std::vector<std::string> groups;
  std::size_t begin = 0;
  while (begin <= semicolonSeparated.size()) {
    const std::size_t end =
        std::min(semicolonSeparated.find(';', begin), semicolonSeparated.size());
    const auto name = withoutBlanksAround(semicolonSeparated.substr(begin, end - begin));
    if (!name.empty()) { groups.emplace_back(name); }
    begin = end + 1;
  }
  return groups;
}
}  // namespace orvane
