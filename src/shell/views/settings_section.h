#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>

#include "core/balance_state.h"
#include "shell/view_models/settings_fields.h"
#include "shell/views/balance_actions.h"
#include "shell/views/labels.h"
#include "shell/views/segmented_picker.h"

namespace orvane {

/// A text field with the buttons that save and remove its text. What the user types is a draft:
/// nothing but the user and `setDraft` changes it.
class SettingsField final : public QWidget {
  Q_OBJECT

 public:
  /// `name`: what the field is for, for screen readers.
  SettingsField(const QString& name, std::function<void()> onCommit, QWidget* parent = nullptr);

  /// Called whenever the draft has changed, by whomever.
  void onDraftChange(std::function<void()> listener);
  [[nodiscard]] std::string draft() const;
  void setDraft(const std::string& text);
  /// What the empty field says.
  void showPlaceholder(const QString& text);
  void showState(const SettingsFieldState& state);
  [[nodiscard]] QLineEdit& edit() { return *edit_; }

 private:
  void remove();

  std::function<void()> onCommit_;
  QLineEdit* edit_;
  QPushButton* save_;
  QPushButton* remove_;
};

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
