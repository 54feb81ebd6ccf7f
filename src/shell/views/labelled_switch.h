#pragma once

#include <QWidget>
#include <functional>

class QCheckBox;

namespace orvane {
/// Something that is on or off, with a text that goes on in a further line where the width ends;
/// one check box to the keyboard and to screen readers.
class LabelledSwitch final : public QWidget {
 public:
  /// `onSwitch` is called when the user has switched, and only then.
  LabelledSwitch(const QString& text, const std::function<void(bool on)>& onSwitch,
                 QWidget* parent = nullptr);
  void showOn(bool on);

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QCheckBox* box_;
};
}  // namespace orvane
