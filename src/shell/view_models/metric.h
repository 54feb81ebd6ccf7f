#pragma once

#include <optional>
#include <string>

namespace orvane {

/// What stands where a figure is not known.
inline constexpr const char* unknownFigure = "—";

/// A labelled figure, for example "Today" over "12,345 sats".
struct Metric {
  std::string title;
  std::string value;
  std::optional<std::string> fiatValue = {};  ///< without the "≈ " before it

  bool operator==(const Metric&) const = default;
};

}  // namespace orvane
