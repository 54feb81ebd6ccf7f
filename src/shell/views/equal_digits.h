#pragma once

#include <QFont>
#include <QList>
#include <QString>
#include <QTextLayout>
#include <array>
#include <optional>

class QPainter;
class QRect;
class QTextDocument;

namespace orvane {
/// One width for all digits of a font. Figures below each other are compared digit by digit, so
/// their digits must have one width. Many interface fonts have such digits only as a feature that
/// older versions of Qt cannot switch on; then each digit gets the width of the widest, rather than
/// all of them another typeface. Made once for a font, as it measures each digit.
class EqualDigits {
 public:
  explicit EqualDigits(const QFont& font);

  /// Those of `font`, from `kept` unless it has another's.
  [[nodiscard]] static const EqualDigits& of(const QFont& font, std::optional<EqualDigits>& kept);

  /// What a line of text needs. Texts of the same form need the same.
  [[nodiscard]] int widthOf(const QString& text) const;
  /// `text` with a zero for each digit.
  [[nodiscard]] static QString formOf(QString text);

  /// Draws a line of text in the painter's pen at the middle of the box's height, shortened where
  /// it is longer than the box. `alignment` is the visual one; the text itself runs in its own
  /// direction, whatever the desktop's.
  void draw(QPainter& painter, const QRect& box, const QString& text,
            Qt::Alignment alignment) const;

  /// Gives equal width to the digits of a document in this font.
  void applyTo(QTextDocument& document) const;

 private:
  /// How much wider the widest digit is than this one; nothing for other characters.
  [[nodiscard]] double paddingOf(QChar character) const;
  [[nodiscard]] QList<QTextLayout::FormatRange> digitCells(const QString& text) const;

  QFont font_;
  std::array<double, 10> widths_{};
  double widest_ = 0;
  bool isPadded_ = false;
};
}  // namespace orvane
