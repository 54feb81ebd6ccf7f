#include "shell/app/balance_main_scene_content.h"

#include <QPointer>
#include <QShowEvent>
#include <QVBoxLayout>
#include <utility>

#include "shell/app/scenes.h"
#include "shell/menu_bar/status_menu.h"

namespace orvane {

namespace {

AmountText amountTextOf(const BalanceStore& store) {
  return [&store](std::int64_t sats) { return store.amountText(sats); };
}

std::function<void()> hiding(const std::shared_ptr<BackgroundRuntime>& runtime) {
  return [weak = std::weak_ptr(runtime)] {
    if (const auto alive = weak.lock()) { alive->hideMainWindow(); }
  };
}

/// Builds the status menu as long as store and runtime exist.
std::function<std::optional<Menu>()> statusMenu(const BalanceMainScene& scene) {
  return [weakStore = std::weak_ptr(scene.store), weakRuntime = std::weak_ptr(scene.runtime),
          actions = scene.menuActions, &application = scene.application]() -> std::optional<Menu> {
    const auto store = weakStore.lock();
    if (!store) { return std::nullopt; }
    actions->setStore(store);
    return makeStatusMenu(store->state(), amountTextOf(*store),
                          {.showMainWindow =
                               [weakRuntime] {
                                 if (const auto runtime = weakRuntime.lock()) {
                                   runtime->showMainWindow();
                                 }
                               },
                           .refreshNow = [actions] { actions->refreshNow(); },
                           .showHelp = [actions] { actions->showHelp(); },
                           .showAbout = [actions] { actions->showAbout(); },
                           .quit = [&application] { application.terminate(); }});
  };
}

}  // namespace

BalanceMainSceneContent::BalanceMainSceneContent(BalanceMainScene scene,
                                                 BalanceViewSettings settings, QWidget* parent)
    : QWidget(parent),
      scene_(std::move(scene)),
      openWindowObserver_(
          scene_.broadcasts.observe(openWindowBroadcast, [this](const BroadcastCenter::Object& id) {
            if (id) { openWindow(*id); }
          })) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(new BalanceView(*scene_.store, scene_.format, std::move(settings),
                                    hiding(scene_.runtime), this));
}

void BalanceMainSceneContent::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!std::exchange(isConnected_, true)) { connectStatusItem(); }
}

void BalanceMainSceneContent::connectStatusItem() {
  auto& runtime = *scene_.runtime;
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
  auto& runtime = *scene_.runtime;
  runtime.attachMainWindow(std::string(mainWindowTitle));
  const auto status = menuBarStatus(scene_.store->state(), amountTextOf(*scene_.store));
  runtime.updateStatus(status.working, status.text, status.alert);
}

void BalanceMainSceneContent::openWindow(const std::string& id) {
  scene_.runtime->showMainWindow();
  scene_.windows.open(id);
  scene_.application.activateIgnoringOtherApps();
}

}  // namespace orvane
