#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <QWidget>
#include <functional>
#include <string>

#include "shell/view_models/settings_section.h"

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

}  // namespace orvane
