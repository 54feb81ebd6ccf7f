#include "shell/app/balance_main_scene_content.h"
#include <QPointer>
#include <QShowEvent>
#include <QVBoxLayout>
#include <functional>
#include <optional>
#include <utility>
#include "shell/menu_bar/status_menu.h"

namespace orvane {
namespace {
AmountText amountTextOf(const BalanceStore& store) {
  return [&store](std::int64_t sats) { return store.amountText(sats); };
}

/// What `member` does, as long as the runtime exists.
std::function<void()> weakly(const std::shared_ptr<BackgroundRuntime>& runtime,
                             void (BackgroundRuntime::*member)()) {
  return [weak = std::weak_ptr(runtime), member] {
    if (const auto alive = weak.lock()) { ((*alive).*member)(); }
  };
}

/// Builds the status menu as long as the store exists.
std::function<std::optional<Menu>()> statusMenu(const BalanceMainScene& scene) {
  return [weakStore = std::weak_ptr(scene.store), actions = scene.menuActions,
          showMainWindow = weakly(scene.backgroundRuntime, &BackgroundRuntime::showMainWindow),
          &application = scene.application]() -> std::optional<Menu> {
    const auto store = weakStore.lock();
    if (!store) { return std::nullopt; }
    actions->setStore(store);
    return makeStatusMenu(store->state(), amountTextOf(*store),
                          {.showMainWindow = showMainWindow,
                           .refreshNow = [actions] { actions->refreshNow(); },
                           .showHelp = [actions] { actions->showHelp(); },
                           .showAbout = [actions] { actions->showAbout(); },
                           .quit = [&application] { application.terminate(); }});
  };
}
}  // namespace

BalanceMainSceneContent::BalanceMainSceneContent(BalanceMainScene scene,
                                                 const BalanceViewSettings& settings,
                                                 QWidget* parent)
    : QWidget(parent),
      scene_(std::move(scene)),
      view_(new BalanceView(*scene_.store, scene_.format, settings,
                            weakly(scene_.backgroundRuntime, &BackgroundRuntime::hideMainWindow),
                            this)),
      openWindowObserver_(scene_.broadcasts.observe(openWindowBroadcast,
                                                    [this](const BroadcastCenter::Object& id) {
                                                      if (id) { openOverMainWindow(*id); }
                                                    })),
      saveHistoryObserver_(scene_.broadcasts.observe(
          saveHistoryBroadcast,
          [this](const BroadcastCenter::Object& /*none*/) { view_->saveHistory(); })) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(view_);
}

void BalanceMainSceneContent::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  connectStatusItem();
}

void BalanceMainSceneContent::connectStatusItem() {
  if (std::exchange(isConnected_, true)) { return; }
  auto& runtime = *scene_.backgroundRuntime;
  runtime.menuBarTextProvider = [weak =
                                     std::weak_ptr(scene_.store)]() -> std::optional<std::string> {
    const auto store = weak.lock();
    return store ? std::optional(store->menuBarTitle()) : std::nullopt;
  };
  runtime.statusMenuProvider = statusMenu(scene_);
  scene_.store->onChange = [self = QPointer(this)] {
    if (self) { self->updateMenuBarStatus(); }
  };
  updateMenuBarStatus();
}

void BalanceMainSceneContent::updateMenuBarStatus() {
  auto& runtime = *scene_.backgroundRuntime;
  runtime.attachMainWindow(std::string(mainWindowTitle));
  const auto status = menuBarStatus(scene_.store->state(), amountTextOf(*scene_.store));
  runtime.updateStatus(status.working, status.text, status.alert);
}

void BalanceMainSceneContent::openOverMainWindow(const std::string& id) {
  scene_.backgroundRuntime->showMainWindow();
  scene_.openWindow(id);
  scene_.application.activateIgnoringOtherApps();
}
}  // namespace orvane
