#pragma once

#include <QLineEdit>
#include <QPen>

namespace orvane {
/// A field for one line of text, with an outline that is seen in any style and palette and can show
/// that the text was refused.
class TextField final : public QLineEdit {
 public:
  explicit TextField(QWidget* parent = nullptr);
  void markRefused(bool isRefused);

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void applyPalette();
  [[nodiscard]] QPen outline(const QPalette& around) const;

  bool isRefused_ = false;
};
}  // namespace orvane
