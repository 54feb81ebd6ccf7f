#pragma once

#include <QCoreApplication>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <gmock/gmock.h>
#include "shell/sample_states.h"
#include "shell/views/balance_view.h"

inline void bringPointerTo(QWidget& widget) {
  QEnterEvent enter({}, {}, {});
  QCoreApplication::sendEvent(&widget, &enter);
}

namespace orvane::test {
/// How far what is drawn stands from the left and the right edge of a picture.
[[nodiscard]] inline std::pair<int, int> inkWithin(const QPixmap& picture) {
  const QImage image = picture.toImage();
  int first = image.width();
  int last = 0;
  for (int x = 0; x < image.width(); ++x) {
    for (int y = 0; y < image.height(); ++y) {
      if (image.pixel(x, y) == image.pixel(0, y)) { continue; }
      first = std::min(first, x);
      last = x;
    }
  }
  return {first, image.width() - last - 1};
}

/// The main window's content over a store on fakes.
class ViewTest : public testing::Test {
 protected:
  void show(const Sample& sample) {
    view.reset();
    fakes = std::make_unique<StoreOnFakes>();
    sample.showIn(*fakes);
    view = std::make_unique<BalanceView>(
        *fakes->store, english,
        BalanceViewSettings{.poolWebHost = "pool.test",
                            .commands = [] { return Menu{{{.title = "Help"}}}; },
                            .askWhereToSave = [this](auto&, auto&, const auto& use) { use(place); },
                            .layout = &layout},
        [this] { ++closes; });
    view->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));  // keys go to no other window
    settle();
  }
  void show(const BalanceState& figures) { show(Sample{.name = {}, .figures = figures}); }
  void resize(int width, int height) {
    view->setMinimumSize(0, 0);
    view->resize(width, height);
    settle();
  }
  /// Lets everything happen that is due now.
  void settle() {
    fakes->executor.runUntilIdle();
    QCoreApplication::processEvents();
  }

  /// The widgets of a kind that are on screen, in the order of the Tab key.
  template <class Widget>
  [[nodiscard]] QList<Widget*> visible() const {
    auto found = view->findChildren<Widget*>();
    found.removeIf([](const Widget* each) { return !each->isVisible(); });
    return found;
  }
  /// What a screen reader calls it; nothing when there is no such thing on screen.
  template <class Widget>
  [[nodiscard]] Widget* find(const char* accessibleName) const {
    return first<Widget>(
        [&](auto* each) { return each->accessibleName() == QLatin1String(accessibleName); });
  }
  /// The button with a text, among those that belong to `subject`.
  [[nodiscard]] QPushButton* button(const char* text, const char* subject) const {
    return first<QPushButton>([&](auto* each) {
      return each->text() == QLatin1String(text) &&
             each->accessibleDescription() == QLatin1String(subject);
    });
  }
  [[nodiscard]] QLabel* label(const std::string& text) const {
    return first<QLabel>([&](auto* each) {
      return QString(each->text()).replace(QChar::Nbsp, u' ') == QString::fromStdString(text);
    });
  }

  MemoryDefaults defaults;  ///< those of the view alone
  KeptLayout layout{defaults};
  LocaleFormat english{{.numbers = "en_US", .dates = "en_US", .timeZone = "UTC"}};
  std::unique_ptr<StoreOnFakes> fakes;
  std::unique_ptr<BalanceView> view;
  int closes = 0;
  QString place;  ///< where the user saves

 private:
  template <class Widget>
  [[nodiscard]] Widget* first(auto isWanted) const {
    const auto all = visible<Widget>();
    const auto found = std::ranges::find_if(all, isWanted);
    return found == all.end() ? nullptr : *found;
  }
};
}  // namespace orvane::test
