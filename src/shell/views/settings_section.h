#pragma once

#include <QWidget>
#include <optional>
#include <string>

#include "core/balance_state.h"
#include "shell/views/balance_actions.h"
#include "shell/views/link_label.h"
#include "shell/views/segmented_picker.h"
#include "shell/views/settings_field.h"
#include "shell/views/text_label.h"

namespace orvane {

/// The settings: token, watched address, currency.
class SettingsSection final : public QWidget {
  Q_OBJECT

 public:
  /// `state` outlives the section. `poolWebHost`: host of the account link.
  SettingsSection(const BalanceState& state, const BalanceActions& actions,
                  const std::string& poolWebHost, QWidget* parent = nullptr);

  /// Fills each field with what the store keeps, once: the token as soon as it has been read from
  /// the keychain, and only into a field that is still empty. Nothing that is being typed is ever
  /// overwritten.
  void loadDrafts();
  /// Shows what follows from the store's state; leaves the fields' texts alone.
  void showState();

 private:
  void commitToken();
  void commitAddress();
  void layOut();
  void showFieldStates();

  const BalanceState& state_;
  const BalanceActions& actions_;
  bool tokenFieldLoaded_ = false;
  bool addressFieldLoaded_ = false;
  std::optional<std::string> addressMessage_;
  SettingsField* token_;
  SettingsField* address_;
  TextLabel* addressMessageLabel_;
  SegmentedPicker* currency_;
  LinkLabel* accountLink_;
};

}  // namespace orvane
