#pragma once

#include <string_view>
#include <vector>
#include "platform/defaults/user_defaults.h"
#include "platform/desktop/qt/window_placement.h"

namespace orvane {
/// How the user has arranged windows and tables, as it is kept between runs. What is missing,
/// damaged or absurd reads as not arranged.
class KeptLayout {
 public:
  /// `defaults` outlives this object.
  explicit KeptLayout(UserDefaults& defaults) : defaults_(defaults) {}

  /// The main window's.
  [[nodiscard]] ChosenPlacement placement() const;
  void setPlacement(const ChosenPlacement& placement);

  /// Of the history's table, but for the last column; empty: not chosen.
  [[nodiscard]] std::vector<int> historyColumns() const;
  void setHistoryColumns(const std::vector<int>& widths);

 private:
  UserDefaults& defaults_;
};
}  // namespace orvane
