#pragma once

#include <QIcon>
#include <QLabel>
#include <QPalette>

#include "shell/views/theme.h"

namespace orvane {

/// A symbol for a button, in the colours of button texts.
[[nodiscard]] QIcon symbolIcon(const QString& name, int size, const QPalette& palette);

/// A symbol beside a text; decoration, unless it is given an accessible name.
class SymbolLabel final : public QWidget {
  Q_OBJECT

 public:
  explicit SymbolLabel(QWidget* parent = nullptr);

  void showSymbol(const QString& name, theme::TextColor color);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString name_;
  theme::TextColor color_ = theme::TextColor::primary;
};

}  // namespace orvane
