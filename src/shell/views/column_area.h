#pragma once

#include <QScrollArea>

class QVBoxLayout;

namespace orvane {

/// A column of the main window: its content stands at the top and scrolls when it is too high.
class ColumnArea final : public QScrollArea {
  Q_OBJECT

 public:
  explicit ColumnArea(const QString& accessibleName, int spacing, QWidget* parent = nullptr);

  [[nodiscard]] QVBoxLayout* column() const { return column_; }

 private:
  QVBoxLayout* column_;
};

}  // namespace orvane
