#include "shell/views/settings_field.h"

#include <QHBoxLayout>

#include "shell/views/qt_text.h"
#include "shell/views/theme.h"

namespace orvane {
namespace {

constexpr int textMargin = 4;

QPushButton* textButton(const QString& text, const QString& accessibleName, QWidget* parent) {
  auto* const button = new QPushButton(text, parent);
  button->setAccessibleName(accessibleName);
  button->setAutoDefault(false);
  return button;
}

}  // namespace

SettingsField::SettingsField(const Names& names, std::function<void()> onCommit, QWidget* parent)
    : QWidget(parent),
      onCommit_(std::move(onCommit)),
      edit_(new QLineEdit(this)),
      save_(textButton(tr("Save"), names.save, this)),
      remove_(textButton(tr("Remove"), names.remove, this)) {
  edit_->setAccessibleName(names.field);
  edit_->setMinimumHeight(save_->sizeHint().height());  // whatever font is typed in
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
  if (wanted != edit_->text()) edit_->setText(wanted);
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
