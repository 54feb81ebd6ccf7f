#pragma once

#include <functional>
#include <string>
#include <vector>

namespace orvane {

/// One row of a menu; a separator has no title.
struct MenuItem {
  std::string title;
  bool enabled = true;
  std::string keyEquivalent = {};  ///< one lower-case character, with Control; empty: none
  std::function<void()> action = {};

  [[nodiscard]] static MenuItem separator() { return MenuItem{}; }
  [[nodiscard]] bool isSeparator() const { return title.empty(); }
};

/// A menu as a value: it is built, shown and forgotten.
struct Menu {
  std::vector<MenuItem> items;
};

}  // namespace orvane
