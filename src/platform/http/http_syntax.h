#pragma once

#include <algorithm>
#include <string_view>

namespace orvane {
/// Whether the text is a token (RFC 9110), which names of headers and methods are.
[[nodiscard]] constexpr bool isToken(std::string_view text) {
  constexpr std::string_view characters =
      "!#$%&'*+-.^_`|~0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

/// Whether two names or codings are the same, which their case does not decide.
[[nodiscard]] constexpr bool isSameName(std::string_view left, std::string_view right) {
  constexpr auto lower = [](char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
  };
  return std::ranges::equal(left, right, {}, lower, lower);
}
}  // namespace orvane
