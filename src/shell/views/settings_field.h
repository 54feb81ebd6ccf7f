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
  struct Names {
    QString field;  ///< what screen readers call the field
    QString save;   ///< and its buttons, which both show one word
    QString remove;
  };

  SettingsField(const Names& names, std::function<void()> onCommit, QWidget* parent = nullptr);

  /// Called whenever the draft has changed, by whomever.
  void onDraftChange(std::function<void()> listener);
  [[nodiscard]] std::string draft() const;
  void setDraft(const std::string& text);
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
