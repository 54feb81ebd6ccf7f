#pragma once

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <memory>
#include <vector>

#include <gmock/gmock.h>

#include "shell/sample_states.h"
#include "shell/views/balance_view.h"

namespace orvane::test {

/// The main window's content over a store on fakes.
class ViewTest : public testing::Test {
 protected:
  void show(const Sample& sample) {
    view.reset();
    fakes = std::make_unique<StoreOnFakes>();
    sample.showIn(*fakes);
    view = std::make_unique<BalanceView>(
        *fakes->store, english,
        BalanceViewSettings{
            .poolWebHost = "pool.test",
            .commands = {{{.title = "Orvane Help", .action = [this] { ++helpCommands; }}}}},
        [this] { ++closes; });
    view->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));  // keys go to no other window
    settle();
  }
  void show(const BalanceState& figures) { show(Sample{.name = {}, .figures = figures}); }
  /// Lets everything happen that is due now.
  void settle() {
    fakes->executor.runUntilIdle();
    QCoreApplication::processEvents();
  }

  /// The widgets of a kind that are on screen, in the order of the Tab key.
  template <class Widget>
  [[nodiscard]] std::vector<Widget*> visible() const {
    std::vector<Widget*> found;
    for (auto* const child : view->findChildren<Widget*>()) {
      if (child->isVisible()) { found.push_back(child); }
    }
    return found;
  }
  /// What a screen reader calls it; nothing when there is no such thing on screen.
  template <class Widget>
  [[nodiscard]] Widget* find(const char* accessibleName) const {
    return first<Widget>(
        [&](const Widget& each) { return each.accessibleName() == QLatin1String(accessibleName); });
  }
  /// The button with a text, among those that belong to `subject`.
  template <class Button = QPushButton>
  [[nodiscard]] Button* button(const char* text, const char* subject) const {
    return first<Button>([&](const Button& each) {
      return each.text() == QLatin1String(text) &&
             each.accessibleDescription() == QLatin1String(subject);
    });
  }
  [[nodiscard]] QLabel* label(const std::string& text) const {
    return first<QLabel>(
        [&](const QLabel& each) { return each.text() == QString::fromStdString(text); });
  }

  LocaleFormat english{{.numbers = "en_US", .dates = "en_US", .timeZone = "UTC"}};
  std::unique_ptr<StoreOnFakes> fakes;
  std::unique_ptr<BalanceView> view;
  int closes = 0;
  int helpCommands = 0;

 private:
  template <class Widget>
  [[nodiscard]] Widget* first(const std::function<bool(const Widget&)>& isWanted) const {
    const auto all = visible<Widget>();
    const auto found = std::ranges::find_if(all, [&](auto* each) { return isWanted(*each); });
    return found == all.end() ? nullptr : *found;
  }
};

}  // namespace orvane::test
