#pragma once

#include <QCoreApplication>
#include <QWidget>
#include <memory>

#include <gtest/gtest.h>

#include "shell/sample_states.h"
#include "shell/views/balance_view.h"

namespace orvane::test {

/// The main window's content, with a state that the test changes as the store would.
class ContentTest : public testing::Test {
 protected:
  /// Brings the content up in `shown`.
  void show(BalanceState shown) {
    state = std::move(shown);
    content = std::make_unique<BalanceContent>(state, format, "pool.test", actions());
    content->show();
    QCoreApplication::processEvents();
  }
  /// Figures arrive.
  void update() {
    content->showState();
    QCoreApplication::processEvents();
  }

  template <class Widget>
  [[nodiscard]] Widget* find(const QString& accessibleName) const {
    for (auto* const child : content->findChildren<Widget*>()) {
      if (child->accessibleName() == accessibleName) { return child; }
    }
    return nullptr;
  }

  BalanceState state;
  LocaleFormat format{{.numbers = "en_US", .dates = "en_US", .timeZone = "UTC"}};
  std::unique_ptr<BalanceContent> content;

 private:
  static BalanceActions actions() {
    return {.refresh = [] {},
            .loadHistory = [] {},
            .setToken = [](const std::string&) {},
            .setOwnAddress = [](const std::string&) { return std::nullopt; },
            .setUnit = [](BalanceUnit) {},
            .setFiatCurrency = [](PreferredFiatCurrency) {},
            .close = [] {},
            .commands = {{{.title = "Orvane Help", .keyEquivalent = "?"}}}};
  }
};

}  // namespace orvane::test
