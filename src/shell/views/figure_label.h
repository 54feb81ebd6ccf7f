#pragma once

#include "shell/views/text_label.h"

namespace orvane {

/// A figure that grows smaller rather than being cut off when it is long.
class FigureLabel final : public TextLabel {
  Q_OBJECT

 public:
  using TextLabel::TextLabel;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void applyFont() override;
};

}  // namespace orvane
