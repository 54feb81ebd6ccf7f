#include "shell/views/settings_field.h"

#include <QHBoxLayout>
#include <algorithm>

#include "shell/views/qt_text.h"
#include "shell/views/theme.h"

namespace orvane {
namespace {

constexpr int textMargin = 4;

/// Both fields have buttons of the same words; a screen reader says which field they belong to.
QPushButton* textButton(const QString& text, const QString& fieldName, QWidget* parent) {
  auto* const button = new QPushButton(text, parent);
  button->setAccessibleDescription(fieldName);
  button->setAutoDefault(false);
  button->setMinimumHeight(theme::controlHeight);
  return button;
}

}  // namespace

SettingsField::SettingsField(const QString& name, std::function<void()> onCommit, QWidget* parent)
    : QWidget(parent),
      onCommit_(std::move(onCommit)),
      edit_(new QLineEdit(this)),
      save_(textButton(tr("Save"), name, this)),
      remove_(textButton(tr("Remove"), name, this)) {
  edit_->setAccessibleName(name);
  // As high as the buttons, whatever font is typed in.
  edit_->setMinimumHeight(std::max(theme::controlHeight, save_->sizeHint().height()));
  edit_->setTextMargins(textMargin, 0, textMargin, 0);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(theme::smallSpacing);
  row->addWidget(edit_, 1);
  row->addWidget(save_);
  row->addWidget(remove_);
  connect(edit_, &QLineEdit::returnPressed, this, [this] { onCommit_(); });
  connect(save_, &QPushButton::clicked, this, [this] { onCommit_(); });
  connect(remove_, &QPushButton::clicked, this, &SettingsField::remove);
}

void SettingsField::onDraftChange(std::function<void()> listener) {
  connect(edit_, &QLineEdit::textChanged, this, [listener = std::move(listener)] { listener(); });
}

std::string SettingsField::draft() const { return toUtf8(edit_->text()); }

void SettingsField::setDraft(const std::string& text) {
  const auto wanted = toQString(text);
  if (wanted != edit_->text()) { edit_->setText(wanted); }
  if (!edit_->hasFocus()) {
    edit_->setCursorPosition(0);  // a long address shows its beginning
  }
}

void SettingsField::showPlaceholder(const QString& text) {
  if (text == edit_->placeholderText()) { return; }
  edit_->setPlaceholderText(text);
  edit_->setAccessibleDescription(text);
}

void SettingsField::showState(const SettingsFieldState& state) {
  save_->setEnabled(state.canSave);
  remove_->setVisible(state.canRemove);
}

void SettingsField::remove() {
  edit_->clear();
  edit_->setFocus(Qt::OtherFocusReason);  // the button is about to go away
  onCommit_();
}

}  // namespace orvane
