#include "shell/app/orvane_app.h"
#include <QCoreApplication>
#include <chrono>
#include <utility>
#include "shell/app/balance_main_scene_content.h"
#include "shell/view_models/app_info.h"
#include "shell/views/about_and_help.h"
#include "shell/views/payments_view.h"

namespace orvane {
namespace {
using namespace std::chrono_literals;

/// Kept once the user has been told that there is no tray.
constexpr const char* toldOfMissingTrayKey = "menuBar.toldOfMissingTray";

constexpr auto longestWaitForToken = 50ms;
constexpr auto longestWaitForWrites = 2s;
constexpr auto lookAtWritesEvery = 20ms;
}  // namespace

OrvaneApp::OrvaneApp(OrvanePlatform platform, OrvaneSettings settings)
    : platform_(std::move(platform)),
      settings_(std::move(settings)),
      layout_(platform_.balance.defaults),
      store_(std::make_shared<BalanceStore>(platform_.balance)),
      backgroundRuntime_(BackgroundRuntime::create({}, {.executor = platform_.balance.executor,
                                                        .application = platform_.desktop,
                                                        .statusBar = platform_.statusBar,
                                                        .broadcasts = broadcasts_,
                                                        .defaults = platform_.balance.defaults})),
      menuActions_(std::make_shared<BalanceMenuActions>(broadcasts_)),
      windows_(platform_.desktop, platform_.balance.executor, backgroundRuntime_,
               [this](const WindowScene& scene) { return makeContent(scene); }),
      appDelegate_(platform_.balance.executor, platform_.desktop, platform_.balance.defaults),
      notifying_(platform_.balance.executor) {
  menuActions_->setStore(store_);
  backgroundRuntime_->onKeptWithoutHost = [this] { tellOfMissingTray(); };
  platform_.desktop.setTerminationHandler([this] { end(); });
}

OrvaneApp::~OrvaneApp() {
  platform_.desktop.setTerminationHandler([] { QCoreApplication::exit(0); });
  platform_.desktop.removeWindows();
}

void OrvaneApp::launch() {
  appDelegate_.willFinishLaunching();
  prepareMainWindow();
  // The window is to open with the columns that it keeps, so a keychain that answers at once is
  // waited for; one that asks the user is not.
  longestWaitForToken_.emplace(platform_.balance.executor, longestWaitForToken,
                               [this] { finishLaunching(); });
  tokenRead_ = store_->observe([this] {
    if (!store_->state().isReadingToken) { finishLaunching(); }
  });
}

void OrvaneApp::finishLaunching() {
  longestWaitForToken_.reset();
  tokenRead_ = {};
  if (startsQuietly_ && mainContent_) {
    mainContent_->connectStatusItem();
    backgroundRuntime_->startHidden();
  } else {
    appDelegate_.didFinishLaunching();
  }
  platform_.balance.executor.post([this] {
    for (const std::string& name : std::exchange(actionsAtLaunch_, {})) {
      runAction(name);
    }
  });
}

void OrvaneApp::reopen() {
  startsQuietly_ = false;
  // The launch is about to bring the window up, in its size.
  if (isLaunching()) { return; }
  if (backgroundRuntime_->isMenuBarOnly()) {
    backgroundRuntime_->showMainWindow();
  } else if (appDelegate_.shouldHandleReopen()) {
    windows_.open(mainSceneId);
  }
}

void OrvaneApp::runAction(std::string_view name) {
  if (name == "start-quietly") {
    startsQuietly_ = isLaunching();
  } else if (isLaunching()) {
    actionsAtLaunch_.emplace_back(name);
  } else if (name == "refresh-now") {
    menuActions_->refreshNow();
  } else if (name == "show-help") {
    menuActions_->showHelp();
  } else if (name == "show-about") {
    menuActions_->showAbout();
  } else if (name == "quit") {
    platform_.desktop.terminate();
  }
}

std::unique_ptr<QWidget> OrvaneApp::makeContent(const WindowScene& scene) {
  if (scene.id == helpSceneId) {
    return std::make_unique<FennickAppHelpView>(orvaneAppInfo(), nullptr, settings_.brandUrl);
  }
  if (scene.id == aboutSceneId) {
    return std::make_unique<FennickAboutView>(
        orvaneAppInfo(), nullptr, settings_.brandUrl,
        applicationVersionText(settings_.version, std::nullopt));
  }
  if (scene.id == paymentsSceneId) {
    return std::make_unique<PaymentsView>(*store_, platform_.balance.format,
                                          settings_.explorerWebHost);
  }
  return makeMainContent();
}

std::unique_ptr<QWidget> OrvaneApp::makeMainContent() {
  auto content = std::make_unique<BalanceMainSceneContent>(
      BalanceMainScene{.store = store_,
                       .backgroundRuntime = backgroundRuntime_,
                       .openWindow = openWindow(),
                       .menuActions = menuActions_,
                       .format = platform_.balance.format,
                       .broadcasts = broadcasts_,
                       .application = platform_.desktop},
      BalanceViewSettings{.poolWebHost = settings_.poolWebHost,
                          .commands = [this] { return commands(); },
                          .askWhereToSave = settings_.askWhereToSave,
                          .layout = &layout_});
  mainContent_ = content.get();
  return content;
}

void OrvaneApp::prepareMainWindow() {
  auto* const window = windows_.prepare(mainSceneId);
  QtDesktopApplication::keepPlacement(
      *window, layout_.placement(),
      [this](const ChosenPlacement& placement) { layout_.setPlacement(placement); });
}

OpenWindow OrvaneApp::openWindow() {
  return [this](std::string_view id) { windows_.open(id); };
}

Menu OrvaneApp::commands() {
  auto& application = platform_.desktop;
  auto payments = paymentsCommand.menuItem(openWindow(), application);
  payments.enabled = !store_->state().watchedAddress.empty();
  Menu menu{{helpCommand.menuItem(openWindow(), application),
             aboutCommand.menuItem(openWindow(), application),
             MenuItem::separator(),
             {.title = "Refresh Now",
              .enabled = store_->state().hasSource(),
              .keyEquivalent = "r",
              .action = [actions = menuActions_] { actions->refreshNow(); }},
             {.title = "Save History as CSV…",
              .enabled = !store_->state().history.empty(),
              .keyEquivalent = "s",
              .action = [this] { broadcasts_.post(saveHistoryBroadcast); }},
             std::move(payments),
             MenuItem::separator(),
             {.title = "Quit Orvane", .keyEquivalent = "q", .action = [&application] {
                application.terminate();
              }}}};
  if (const auto& login = settings_.startAtLogin) {
    MenuItem start{.title = "Start at Login",
                   .action = [login = *login] { login.set(!login.isOn()); },
                   .checked = login->isOn()};
    menu.items.insert(menu.items.end() - 2, std::move(start));  // before the end and its separator
  }
  return menu;
}

void OrvaneApp::tellOfMissingTray() {
  UserDefaults& defaults = platform_.balance.defaults;
  if (defaults.boolean(toldOfMissingTrayKey).value_or(false)) { return; }
  defaults.setBoolean(toldOfMissingTrayKey, true);
  NotificationRequest request{.identifier = "missing-tray",
                              .title = "Orvane is still running",
                              .body =
                                  "No tray shows its icon here, so closing minimises the "
                                  "window. Ctrl+Q ends Orvane."};
  notifying_.spawn(postInOrder(platform_.balance.notifications, {std::move(request)}));
}

void OrvaneApp::end() {
  if (const auto tell = std::exchange(onEnd, nullptr)) { tell(); }
  // Gone for the user at once, even when a last write takes its time.
  for (auto* const window : platform_.desktop.windows()) {
    window->orderOut();
  }
  if (exitDeadline_) { return; }
  exitDeadline_ = platform_.balance.executor.now() + longestWaitForWrites;
  exitOnceWritten();
}

void OrvaneApp::exitOnceWritten() {
  auto& executor = platform_.balance.executor;
  if (store_->writesFinished() || executor.now() >= *exitDeadline_) {
    QCoreApplication::exit(0);
  } else {
    nextLookAtWrites_.emplace(executor, lookAtWritesEvery, [this] { exitOnceWritten(); });
  }
}
}  // namespace orvane
