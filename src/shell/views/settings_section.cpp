#include "shell/views/settings_section.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

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

namespace {

using theme::TextColor;
using theme::TextStyle;

constexpr const char* tokenHelp =
    "Create a read-only token in Braiins Pool → Settings → Access Profiles. It is stored in your "
    "iCloud Keychain, shared with Hashwick on this Mac, and used only to load this account's "
    "balance, rewards, workers and history.";
constexpr const char* addressHelp =
    "Shows the balance and block rewards of one address and notifies you when it receives a "
    "payment or a block reward. Without an address here, Orvane watches the payout address "
    "Hashwick uses for solo mining on mainnet, through iCloud Keychain also on your other Macs; an "
    "address entered here takes precedence. The balance is read from Chainpeek, which learns the "
    "address but no key; nothing can be spent from here.";
constexpr const char* currencyHelp =
    "for the value of the balance and rewards at the current Bitcoin price.";

TextLabel* helpText(const char* text, QWidget* parent) {
  auto* const label = new TextLabel(TextStyle::callout, TextColor::secondary, parent);
  label->showText(text);
  label->setWordWrap(true);
  return label;
}

std::function<void(int)> currencyChoice(const BalanceActions& actions) {
  return [choose = actions.setFiatCurrency](int index) {
    choose(allFiatCurrencies.at(static_cast<std::size_t>(index)));
  };
}

QStringList currencySymbols() {
  QStringList symbols;
  for (const auto currency : allFiatCurrencies) {
    symbols.append(toQString(symbol(currency)));
  }
  return symbols;
}

int choiceIndex(PreferredFiatCurrency currency) {
  const auto* const found = std::ranges::find(allFiatCurrencies, currency);
  return static_cast<int>(found - allFiatCurrencies.begin());
}

}  // namespace

SettingsSection::SettingsSection(const BalanceState& state, const BalanceActions& actions,
                                 const std::string& poolWebHost, QWidget* parent)
    : QWidget(parent), state_(state), actions_(actions) {
  token_ = new SettingsField(tr("Braiins API token"), [this] { commitToken(); }, this);
  token_->edit().setEchoMode(QLineEdit::Password);
  token_->showPlaceholder(tr("Read-only Braiins API token"));
  address_ = new SettingsField(tr("Bitcoin address to watch"), [this] { commitAddress(); }, this);
  addressMessageLabel_ = new TextLabel(TextStyle::callout, TextColor::red, this);
  addressMessageLabel_->setWordWrap(true);
  addressMessageLabel_->makeSelectable();
  currency_ = new SegmentedPicker(tr("Preferred currency"), currencySymbols(),
                                  currencyChoice(actions), this);
  const auto link = accountLink(poolWebHost);
  accountLink_ = new LinkLabel(TextStyle::callout, link.text, link.url, this);
  for (auto* const field : {token_, address_}) {
    field->onDraftChange([this] { showFieldStates(); });
  }
  layOut();
}

void SettingsSection::layOut() {
  auto* const heading = new TextLabel(TextStyle::headline, TextColor::primary, this);
  heading->setText(tr("Settings"));
  auto* const currencyName = new TextLabel(TextStyle::body, TextColor::primary, this);
  currencyName->setText(tr("Preferred currency"));
  auto* const currencyRow = new QHBoxLayout;
  currencyRow->setSpacing(theme::barPadding);
  currencyRow->addWidget(currencyName);
  currencyRow->addWidget(currency_);
  currencyRow->addStretch();

  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, theme::groupGap, 0, 0);
  column->setSpacing(theme::smallSpacing);
  column->addWidget(heading);
  column->addWidget(token_);
  column->addWidget(helpText(tokenHelp, this));
  column->addSpacing(theme::groupGap);
  column->addWidget(address_);
  column->addWidget(addressMessageLabel_);
  column->addWidget(helpText(addressHelp, this));
  column->addSpacing(theme::groupGap);
  column->addLayout(currencyRow);
  column->addWidget(helpText(currencyHelp, this));
  column->addWidget(accountLink_, 0, Qt::AlignLeading);
}

void SettingsSection::loadDrafts() {
  if (!std::exchange(addressFieldLoaded_, true)) { address_->setDraft(state_.ownAddress); }
  if (tokenFieldLoaded_ || state_.isReadingToken) { return; }
  tokenFieldLoaded_ = true;
  if (token_->draft().empty()) { token_->setDraft(state_.token); }
}

void SettingsSection::showState() {
  showFieldStates();
  address_->showPlaceholder(toQString(addressPlaceholder(state_)));
  addressMessageLabel_->showTextOrHide(addressMessage_.value_or(std::string()));
  currency_->showChoice(choiceIndex(state_.preferredFiatCurrency));
  accountLink_->setVisible(!state_.token.empty());
}

void SettingsSection::showFieldStates() {
  // The placeholder is a sentence, and too long for the field in the font of addresses.
  const bool isEmpty = address_->draft().empty();
  address_->edit().setFont(theme::textFont(isEmpty ? TextStyle::body : TextStyle::bodyMonospaced));
  token_->showState(tokenFieldState(state_, token_->draft()));
  address_->showState(addressFieldState(state_, address_->draft()));
}

void SettingsSection::commitToken() {
  actions_.setToken(token_->draft());
  showState();
}

void SettingsSection::commitAddress() {
  addressMessage_ = actions_.setOwnAddress(address_->draft());
  if (!addressMessage_) { address_->setDraft(state_.ownAddress); }
  showState();
  if (addressMessage_) {
    QAccessibleEvent alert(addressMessageLabel_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
  }
}

}  // namespace orvane
