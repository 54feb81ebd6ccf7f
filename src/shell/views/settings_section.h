#pragma once

#include <QWidget>
#include <optional>
#include <string>
#include "core/balance_store.h"
#include "shell/views/controls.h"
#include "shell/views/labels.h"

namespace orvane {
class LabelledSwitch;
class SettingsField;

/// The settings: token, watched address, currency. What the user types into a field is a draft:
/// nothing but the user, `loadDrafts` and an accepted commit changes it.
class SettingsSection final : public QWidget {
 public:
  /// `store` outlives the section. `poolWebHost`: host of the account link.
  SettingsSection(BalanceStore& store, const std::string& poolWebHost, QWidget* parent = nullptr);

  /// Fills each field with what the store keeps, once: the token as soon as it has been read from
  /// the keychain, and only into a field that is still empty. Nothing that is being typed is ever
  /// overwritten.
  void loadDrafts();
  /// Shows what follows from the store's state; leaves the fields' texts alone.
  void showState();

 private:
  [[nodiscard]] Secret tokenDraft() const;
  [[nodiscard]] std::string addressDraft() const;
  void commitToken();
  void commitAddress();
  void layOut();
  void showFieldStates();

  BalanceStore& store_;
  bool tokenFieldLoaded_ = false;
  bool addressFieldLoaded_ = false;
  std::optional<std::string> addressMessage_;
  SettingsField* tokenField_;
  SettingsField* addressField_;
  TextLabel* addressMessageLabel_;
  SegmentedPicker* currency_;
  LinkLabel* accountLink_;
  LabelledSwitch* workerAlerts_;
};
}  // namespace orvane
