#include "shell/views/settings_section.h"
#include <QHBoxLayout>
#include <algorithm>
#include <cstring>
#include <utility>
#include "shell/view_models/window_contents.h"
#include "shell/views/flow_layout.h"
#include "shell/views/labelled_switch.h"
#include "shell/views/qt_text.h"
#include "shell/views/text_field.h"

namespace orvane {
using theme::TextColor;
using theme::TextStyle;

namespace {
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
  return wrappingText(toQString(text), TextStyle::callout, TextColor::secondary, parent);
}

/// Both fields have buttons of the same words; a screen reader says which field they belong to.
QPushButton* textButton(const QString& text, const QString& fieldName, QWidget* parent) {
  auto* const button = new TextButton(text, parent);
  button->setAccessibleDescription(fieldName);
  return button;
}

SegmentedPicker* currencyPicker(BalanceStore& store, QWidget* parent) {
  QStringList symbols;
  for (const auto currency : allFiatCurrencies) {
    symbols.append(toQString(symbol(currency)));
  }
  return new SegmentedPicker(
      QWidget::tr("Preferred currency"), {}, symbols,
      [&store](std::size_t index) { store.setPreferredFiatCurrency(allFiatCurrencies.at(index)); },
      parent);
}
}  // namespace

/// A text field with the buttons that save and remove its text.
class SettingsField final : public QWidget {
 public:
  /// `name`: what the field is for, for screen readers. `onDraftChange` is called whenever the
  /// draft has changed, by whomever.
  SettingsField(const QString& name, std::function<void()> onCommit,
                std::function<void()> onDraftChange, QWidget* parent)
      : QWidget(parent),
        onCommit_(std::move(onCommit)),
        edit_(new TextField(this)),
        save_(textButton(tr("Save"), name, this)),
        remove_(textButton(tr("Remove"), name, this)) {
    edit_->setAccessibleName(name);
    // As high as the buttons, whatever font is typed in.
    edit_->setMinimumHeight(std::max(theme::controlHeight, save_->sizeHint().height()));
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(theme::smallSpacing);
    row->addWidget(edit_, 1);
    row->addWidget(save_);
    row->addWidget(remove_);
    connect(edit_, &QLineEdit::textChanged, this, std::move(onDraftChange));
    connect(edit_, &QLineEdit::textChanged, this, [this] { edit_->markRefused(false); });
    connect(edit_, &QLineEdit::returnPressed, this, [this] { onCommit_(); });
    connect(save_, &QPushButton::clicked, this, [this] { onCommit_(); });
    connect(remove_, &QPushButton::clicked, this, [this] { remove(); });
  }

  [[nodiscard]] QLineEdit& edit() { return *edit_; }
  [[nodiscard]] Secret draft() const { return toSecret(edit_->text()); }

  void setDraft(std::string_view text) {
    const auto wanted = toQString(text);
    if (wanted != edit_->text()) { edit_->setText(wanted); }
    if (!edit_->hasFocus()) {
      edit_->setCursorPosition(0);  // a long address shows its beginning
    }
  }

  /// Hands the draft back to be corrected: marked until it is edited, and ready to be typed over.
  void refuseDraft() {
    edit_->markRefused(true);
    edit_->setFocus(Qt::OtherFocusReason);
    edit_->selectAll();
  }

  /// What the empty field says.
  void showPlaceholder(const QString& text) {
    if (text == edit_->placeholderText()) { return; }
    edit_->setPlaceholderText(text);
    edit_->setAccessibleDescription(text);
  }

  void showState(const SettingsFieldState& state) {
    // A button that is disabled would hand its focus to the one that removes.
    if (save_->hasFocus() && !state.canSave) { edit_->setFocus(Qt::OtherFocusReason); }
    save_->setEnabled(state.canSave);
    remove_->setVisible(state.canRemove);
  }

 private:
  void remove() {
    if (edit_->echoMode() == QLineEdit::Password) { wipe(); }
    edit_->clear();
    edit_->setFocus(Qt::OtherFocusReason);  // the button is about to go away
    onCommit_();
  }

  /// The memory that the field shares with its text, and what it remembers of single keys.
  void wipe() {
    const QString text = edit_->text();
    ::explicit_bzero(const_cast<QChar*>(text.constData()),
                     static_cast<std::size_t>(text.size()) * sizeof(QChar));
    edit_->setText(QString());
  }

  std::function<void()> onCommit_;
  TextField* edit_;
  QPushButton* save_;
  QPushButton* remove_;
};

SettingsSection::SettingsSection(BalanceStore& store, const std::string& poolWebHost,
                                 QWidget* parent)
    : QWidget(parent), store_(store) {
  const auto showFields = [this] { showFieldStates(); };
  tokenField_ =
      new SettingsField(tr("Braiins API token"), [this] { commitToken(); }, showFields, this);
  tokenField_->edit().setEchoMode(QLineEdit::Password);
  tokenField_->showPlaceholder(tr("Read-only Braiins API token"));
  addressField_ = new SettingsField(
      tr("Bitcoin address to watch"), [this] { commitAddress(); }, showFields, this);
  addressMessageLabel_ = wrappingText({}, TextStyle::callout, TextColor::red, this);
  addressMessageLabel_->makeSelectable();
  currency_ = currencyPicker(store, this);
  const auto link = accountLink(poolWebHost);
  accountLink_ = new LinkLabel(TextStyle::callout, link.text, link.url, this);
  workerAlerts_ = new LabelledSwitch(
      tr("Notify me when a worker stops or recovers"),
      [&store](bool on) { store.setNotifiesWorkerStates(on); }, this);
  layOut();
}

void SettingsSection::layOut() {
  auto* const currencyRow =
      new FlowLayout(FlowLayout::Align::baseline, theme::barPadding, theme::smallSpacing);
  auto* const title =
      new TextLabel(tr("Preferred currency"), TextStyle::body, TextColor::primary, this);
  title->setBuddy(currency_);  // screen readers: its label
  currencyRow->addWidget(title);
  currencyRow->addWidget(currency_);

  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, theme::groupGap, 0, 0);
  column->setSpacing(theme::smallSpacing);
  column->addWidget(new TextLabel(tr("Settings"), TextStyle::headline, TextColor::primary, this));
  column->addWidget(tokenField_);
  column->addWidget(helpText(tokenHelp, this));
  column->addSpacing(theme::groupGap);
  column->addWidget(addressField_);
  column->addWidget(addressMessageLabel_);
  column->addWidget(helpText(addressHelp, this));
  column->addSpacing(theme::groupGap);
  column->addLayout(currencyRow);
  column->addWidget(helpText(currencyHelp, this));
  column->addWidget(accountLink_, 0, Qt::AlignLeading);
  column->addSpacing(theme::groupGap);
  column->addWidget(workerAlerts_);
}

void SettingsSection::loadDrafts() {
  const auto& state = store_.state();
  if (!std::exchange(addressFieldLoaded_, true)) { addressField_->setDraft(state.ownAddress); }
  if (tokenFieldLoaded_ || state.isReadingToken) { return; }
  tokenFieldLoaded_ = true;
  if (tokenDraft().empty()) { tokenField_->setDraft(state.token); }
  // Who starts with nothing has come to enter a token.
  if (!state.hasSource() && !window()->focusWidget()) {
    tokenField_->edit().setFocus(Qt::OtherFocusReason);
  }
}

void SettingsSection::showState() {
  const auto& state = store_.state();
  showFieldStates();
  addressField_->showPlaceholder(toQString(addressPlaceholder(state)));
  addressMessageLabel_->showTextOrHide(addressMessage_.value_or(std::string()));
  const auto* const chosen = std::ranges::find(allFiatCurrencies, state.preferredFiatCurrency);
  currency_->showChoice(static_cast<std::size_t>(chosen - allFiatCurrencies.begin()));
  accountLink_->setVisible(!state.token.empty());
  workerAlerts_->showOn(state.notifiesWorkerStates);
}

void SettingsSection::showFieldStates() {
  // The placeholder is a sentence, and too long for the field in the font of addresses.
  const auto style = addressDraft().empty() ? TextStyle::body : TextStyle::bodyMonospaced;
  addressField_->edit().setFont(theme::textFont(style));
  tokenField_->showState(tokenFieldState(store_.state(), tokenDraft()));
  addressField_->showState(addressFieldState(store_.state(), addressDraft()));
}

Secret SettingsSection::tokenDraft() const { return tokenField_->draft(); }
std::string SettingsSection::addressDraft() const {
  return std::string(addressField_->draft().view());
}

void SettingsSection::commitToken() {
  store_.setToken(tokenDraft());
  showState();
}

void SettingsSection::commitAddress() {
  addressMessage_ = store_.setOwnAddress(addressDraft());
  if (!addressMessage_) { addressField_->setDraft(store_.state().ownAddress); }
  showState();
  if (addressMessage_) {
    addressField_->refuseDraft();
    announce(*addressMessageLabel_, *addressMessage_);
  }
}
}  // namespace orvane
