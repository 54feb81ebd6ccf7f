#pragma once

#include <QVBoxLayout>
#include <QWidget>

#include "shell/views/theme.h"

namespace orvane {

/// A rounded rectangle around a card's content, in the card's tint.
class Card : public QWidget {
  Q_OBJECT

 public:
  explicit Card(theme::MarkColor tint, QWidget* parent = nullptr);

 protected:
  /// Where the content goes, row by row.
  [[nodiscard]] QVBoxLayout* rows() const { return rows_; }
  void paintEvent(QPaintEvent* event) override;

 private:
  theme::MarkColor tint_;
  QVBoxLayout* rows_;
};

/// A rounded, outlined rectangle around a table, on the ground of the desktop's lists.
class Panel final : public QWidget {
  Q_OBJECT

 public:
  explicit Panel(QWidget* parent = nullptr);

  /// Where the content goes, from top to bottom.
  [[nodiscard]] QVBoxLayout* rows() const { return rows_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QVBoxLayout* rows_;
};

/// A rounded, filled rectangle around a text that may be copied.
class Chip final : public QWidget {
  Q_OBJECT

 public:
  explicit Chip(QWidget* parent = nullptr) : QWidget(parent) {}

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// A line between two parts of a window.
class Divider final : public QWidget {
  Q_OBJECT

 public:
  explicit Divider(Qt::Orientation orientation, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace orvane
