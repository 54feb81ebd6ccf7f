#pragma once

#include <cstdint>
#include <vector>

#include "platform/desktop/menu.h"

namespace orvane {

/// The menu as hosts last saw it. A row that is still there in the next menu keeps its number, so
/// that a click into a menu that is open meanwhile means the row that the user saw.
class MenuModel {
 public:
  struct Row {
    int id;  ///< above zero, which stands for the menu as a whole
    MenuItem item;
  };

  /// Takes the rows of `menu`; true when a host would see a difference.
  bool replace(Menu menu);

  /// Grows with every difference.
  [[nodiscard]] std::uint32_t revision() const { return revision_; }
  [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }
  [[nodiscard]] const MenuItem* find(int id) const;

 private:
  std::uint32_t revision_ = 1;
  int lastId_ = 0;
  std::vector<Row> rows_;
};

}  // namespace orvane
