#pragma once

#include <charconv>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>

namespace orvane::services {
/// The number that the whole text stands for; none when there is anything else in it.
template <typename T>
[[nodiscard]] std::optional<T> numberFrom(std::string_view text) {
  T number{};
  const char* const end = std::to_address(text.end());
  const auto [stopped, error] = std::from_chars(std::to_address(text.begin()), end, number);
  if (error != std::errc() || stopped != end) { return std::nullopt; }
  return number;
}
}  // namespace orvane::services
