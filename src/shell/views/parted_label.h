#pragma once

#include <QFontMetrics>
#include <QString>
#include "shell/views/labels.h"

namespace orvane {
/// A text of parts with " · " between them, with its blanks such that it goes on in a further line
/// between two parts only; a part that is itself wider than `width` may break at any of its blanks.
/// A text of one part comes back unchanged.
[[nodiscard]] QString breakingBetweenParts(const QString& text, const QFontMetrics& metrics,
                                           int width);

/// Shows such a text. Its name to screen readers, and what is copied of it, has common blanks.
class PartedLabel final : public TextLabel {
 public:
  PartedLabel(theme::TextStyle style, theme::TextColor color, QWidget* parent);

  void showText(std::string_view text);
  [[nodiscard]] int heightForWidth(int width) const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  /// In which no part breaks; that of words for a text of one part.
  [[nodiscard]] int widthOfParts() const;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void applyFont() override;

 private:
  [[nodiscard]] QString brokenFor(int width) const;
  void breakAnew();

  QString text_;
  mutable KeptHeights heights_;
};
}  // namespace orvane
