#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

class QRadioButton;

namespace orvane {

/// A choice of one among few, side by side: a group of radio buttons to the keyboard and to
/// screen readers.
class SegmentedPicker final : public QWidget {
  Q_OBJECT

 public:
  /// `onChoose` is called with the index of the choice that the user made, and only then.
  SegmentedPicker(const QString& accessibleName, const QStringList& choices,
                  const std::function<void(int)>& onChoose, QWidget* parent = nullptr);

  void showChoice(int index);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::vector<QRadioButton*> segments_;
  bool isShowing_ = false;
};

}  // namespace orvane
