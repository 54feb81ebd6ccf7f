#pragma once

#include <QLabel>
#include <QWidget>
#include <functional>
#include <map>
#include <string_view>
#include <tuple>
#include <vector>
#include "shell/view_models/window_contents.h"
#include "shell/views/colors.h"
#include "shell/views/screen_reader.h"
#include "shell/views/theme.h"

namespace orvane {
/// Plain text in a style and colour of the design; both follow the desktop when it changes.
/// The text is never taken for markup, wherever it comes from.
class TextLabel : public QLabel {
 public:
  explicit TextLabel(theme::TextStyle style, theme::TextColor color = theme::TextColor::primary,
                     QWidget* parent = nullptr);
  TextLabel(const QString& text, theme::TextStyle style, theme::TextColor color,
            QWidget* parent = nullptr);

  /// Does nothing when the text is already shown, so that a selection in it stays.
  void showText(std::string_view text);
  /// Shows the text, or nothing at all when it is empty.
  void showTextOrHide(std::string_view text);
  void setColor(theme::TextColor color);

  enum class By { mouse, mouseAndKeyboard };
  /// Lets the user select and copy the text. By keyboard it is a station of the Tab key that
  /// selects the whole; without a selection the whole is copied.
  void makeSelectable(By means = By::mouseAndKeyboard);

 protected:
  [[nodiscard]] theme::TextStyle style() const { return style_; }
  void changeEvent(QEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  /// The text with the marks that keep its parts in order in windows from right to left.
  [[nodiscard]] static QString drawn(std::string_view text);
  /// A text that is selected as a whole stays so.
  void replaceText(const QString& text);
  /// The font of the style, as the desktop has it now.
  virtual void applyFont();

 private:
  void applyColor();
  void selectAll();
  [[nodiscard]] bool isWhollySelected() const;
  void copy() const;

  theme::TextStyle style_;
  theme::TextColor color_;
  bool waitsForPointer_ = false;  ///< to be selectable
};

/// The heights that a text has at the widths it was asked for. As a window comes up, layouts ask
/// for the height at the same few widths again and again, and Qt would lay the text out each time.
class KeptHeights {
 public:
  [[nodiscard]] int at(int width, const QLabel& label, const std::function<int()>& measure);

 private:
  std::tuple<QString, QFont, double> measured_;  ///< the font's pixels depend on the screen
  std::map<int, int> heights_;                   ///< of that, by the width
};

/// A text of any length, that goes on in a further line where the width ends.
[[nodiscard]] TextLabel* wrappingText(const QString& text, theme::TextStyle style,
                                      theme::TextColor color, QWidget* parent);

/// A figure that grows smaller rather than being cut off when it is long.
class FigureLabel final : public TextLabel {
 public:
  using TextLabel::TextLabel;
  /// What it would need to show this in its full size.
  [[nodiscard]] int widthOf(std::string_view text) const;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void applyFont() override;
};

/// A text that opens a web page, by mouse and by keyboard; plain text without a page to open.
class LinkLabel final : public QLabel, public SpokenWidget {
 public:
  LinkLabel(theme::TextStyle style, std::string_view text, std::string_view url,
            QWidget* parent = nullptr);

  [[nodiscard]] SpokenWords spokenWords() const override;
  void pressSpoken() override;
  /// As wide as the text in one line; where that is too wide it goes on in further ones.
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void applyStyle();

  theme::TextStyle style_;
  QString text_;
  QString url_;
};

/// A symbol beside a text; decoration, unless it is given an accessible name.
class SymbolLabel final : public QWidget {
 public:
  explicit SymbolLabel(QWidget* parent = nullptr);
  void showSymbol(const QString& name, theme::TextColor color);

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void fitToFont();

  QString name_;
  theme::TextColor color_ = theme::TextColor::primary;
};

/// A title above a figure, and its value in money beneath where it has one.
class MetricBlock final : public QWidget {
 public:
  MetricBlock(theme::TextStyle title, theme::TextStyle value, QWidget* parent);
  void showMetric(const Metric& metric);
  /// What it would need to show this one.
  [[nodiscard]] int widthOf(const Metric& metric) const;

 private:
  TextLabel* title_;
  FigureLabel* value_;
  FigureLabel* fiatValue_;
};

/// Any number of metrics side by side; they wrap when the width is used up.
class MetricRow final : public QWidget {
 public:
  using MakeBlock = MetricBlock* (*)(QWidget* parent);

  /// `makeBlock`: makes the blocks in the style of the place.
  explicit MetricRow(MakeBlock makeBlock, QWidget* parent = nullptr);
  void showMetrics(const std::vector<Metric>& metrics);
  /// What they would need in one row.
  [[nodiscard]] int widthOf(const std::vector<Metric>& metrics) const;

 private:
  MakeBlock makeBlock_;
  std::vector<MetricBlock*> blocks_;
};
}  // namespace orvane
