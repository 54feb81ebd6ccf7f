#pragma once

#include "core/balance_state.h"
#include "shell/views/segmented_picker.h"

namespace orvane {

/// The first row of a card: its title and the choice of the unit.
class CardTitleRow final : public QWidget {
  Q_OBJECT

 public:
  CardTitleRow(const QString& title, const std::function<void(BalanceUnit)>& onChoose,
               QWidget* parent = nullptr);
  void showUnit(BalanceUnit unit);

 private:
  SegmentedPicker* unit_;
};

}  // namespace orvane
