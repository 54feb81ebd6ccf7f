#pragma once

#include <QScrollArea>
#include <QVBoxLayout>
#include "shell/views/labels.h"
#include "shell/views/theme.h"

namespace orvane {
class FlowLayout;

/// A rounded rectangle with a ground of its own. To what stands on it that ground is the window's,
/// so that colours are chosen which can be read there.
class Surface : public QWidget {
  Q_OBJECT

 public:
  Surface(theme::Ground ground, int radius, QWidget* parent);

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void applyGround();

  theme::Ground ground_;
  int radius_;
};

/// A rounded rectangle around a card's content, in the card's tint.
class Card : public Surface {
 public:
  explicit Card(theme::Ground ground, QWidget* parent = nullptr);

 protected:
  /// Where the content goes, row by row.
  [[nodiscard]] QVBoxLayout* rows() const { return rows_; }

 private:
  QVBoxLayout* rows_;
};

/// A rounded, outlined rectangle around a table, on the ground of the desktop's lists.
class Panel final : public Surface {
 public:
  explicit Panel(QWidget* parent = nullptr);

  /// Where the content goes, from top to bottom.
  [[nodiscard]] QVBoxLayout* rows() const { return rows_; }

 private:
  QVBoxLayout* rows_;
};

/// A rounded, filled rectangle around a text that may be copied, or around choices.
class Chip : public Surface {
 public:
  explicit Chip(QWidget* parent = nullptr);
};

/// A line between two parts of a window.
class Divider final : public QWidget {
 public:
  explicit Divider(Qt::Orientation orientation, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// Gives both directions of `area` scroll bars that are only their handles: the cards and tables
/// stay what the eye sees first.
void useThinScrollBars(QAbstractScrollArea& area);

/// A column of texts and controls: its content stands at the top and scrolls when it is too high.
/// What gets the focus by keyboard comes into sight. One in which nothing takes the focus can be
/// given a focus policy to be scrolled by keyboard.
class ColumnArea final : public QScrollArea {
 public:
  explicit ColumnArea(const QString& accessibleName, int spacing, QWidget* parent = nullptr);
  [[nodiscard]] QVBoxLayout* column() const { return column_; }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void followFocus(QWidget* from, QWidget* to);

  QVBoxLayout* column_;
};

/// A section's title with a word about its content beside it; room for a control at the end.
class SectionHeader final : public QWidget {
 public:
  explicit SectionHeader(const QString& title, QWidget* parent = nullptr);
  void showSubtitle(std::string_view subtitle) { subtitle_->showTextOrHide(subtitle); }
  void addControl(QWidget* control);

 private:
  FlowLayout* row_;
  TextLabel* subtitle_;
};
}  // namespace orvane
