#pragma once

#include <Qt>

namespace orvane {

/// What a table's model says of a cell beyond its text.
enum TableRole {
  dotColorRole = Qt::UserRole  ///< a theme::MarkColor as int: a dot before the text
};

}  // namespace orvane
