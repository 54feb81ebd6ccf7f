#pragma once

#include <QLabel>
#include <string_view>

#include "shell/views/theme.h"

namespace orvane {

/// Plain text in a style and colour of the design; both follow the desktop when it changes.
/// The text is never taken for markup, wherever it comes from.
class TextLabel : public QLabel {
  Q_OBJECT

 public:
  explicit TextLabel(theme::TextStyle style, theme::TextColor color = theme::TextColor::primary,
                     QWidget* parent = nullptr);

  /// Does nothing when the text is already shown, so that a selection in it stays.
  void showText(std::string_view text);
  /// Shows the text, or nothing at all when it is empty.
  void showTextOrHide(std::string_view text);
  void setColor(theme::TextColor color);
  /// Lets the user select and copy the text, by mouse and by keyboard.
  void makeSelectable();

 protected:
  [[nodiscard]] theme::TextStyle style() const { return style_; }
  void changeEvent(QEvent* event) override;
  /// The font of the style, as the desktop has it now.
  virtual void applyFont();

 private:
  void applyColor();

  theme::TextStyle style_;
  theme::TextColor color_;
};

}  // namespace orvane
