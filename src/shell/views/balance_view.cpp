#include "shell/views/balance_view.h"

#include <QVBoxLayout>

namespace orvane {
namespace {

BalanceActions actionsOn(BalanceStore& store, const BalanceViewSettings& settings,
                         std::function<void()> onClose) {
  return {
      .refresh =
          [&store] {
            store.restartPolling();
            store.restartAddressWatch();
          },
      .loadHistory = [&store] { store.loadHistory(); },
      .setToken = [&store](const std::string& text) { store.setToken(text); },
      .setOwnAddress = [&store](const std::string& text) { return store.setOwnAddress(text); },
      .setUnit = [&store](BalanceUnit unit) { store.setUnit(unit); },
      .setFiatCurrency =
          [&store](PreferredFiatCurrency currency) { store.setPreferredFiatCurrency(currency); },
      .close = std::move(onClose),
      .commands = settings.commands};
}

}  // namespace

BalanceView::BalanceView(BalanceStore& store, const LocaleFormat& format,
                         const BalanceViewSettings& settings, std::function<void()> onClose,
                         QWidget* parent)
    : QWidget(parent),
      content_(new BalanceContent(store.state(), format, settings.poolWebHost,
                                  actionsOn(store, settings, std::move(onClose)), this)),
      update_(*this, [this] { content_->showState(); }),
      subscription_(store.observe([this] { update_.request(); })) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(content_);
  update_.request();
}

}  // namespace orvane
