#include "shell/app/orvane_app.h"

#include <QCoreApplication>
#include <chrono>
#include <utility>

#include "shell/app/balance_main_scene_content.h"
#include "shell/app/balance_menu_actions.h"
#include "shell/view_models/app_info.h"
#include "shell/views/about_and_help.h"

namespace orvane {

namespace {

constexpr auto longestWaitForToken = std::chrono::milliseconds(50);

}  // namespace

OrvaneApp::OrvaneApp(OrvanePlatform platform, OrvaneSettings settings)
    : platform_(std::move(platform)),
      settings_(std::move(settings)),
      store_(std::make_shared<BalanceStore>(platform_.balance)),
      runtime_(BackgroundRuntime::create({}, {.executor = platform_.balance.executor,
                                              .application = platform_.desktop,
                                              .statusBar = platform_.statusBar,
                                              .broadcasts = broadcasts_,
                                              .defaults = platform_.balance.defaults})),
      menuActions_(std::make_shared<BalanceMenuActions>(broadcasts_)),
      windows_(platform_.desktop, platform_.balance.executor, runtime_,
               [this](const WindowScene& scene) { return makeContent(scene); }),
      delegate_(platform_.balance.executor, platform_.desktop, platform_.balance.defaults),
      exit_(
          platform_.balance.executor, [this] { return store_->writesFinished(); },
          [] { QCoreApplication::exit(0); }) {
  menuActions_->setStore(store_);
  platform_.desktop.setTerminationHandler([this] { end(); });
}

OrvaneApp::~OrvaneApp() {
  platform_.desktop.setTerminationHandler([] { QCoreApplication::exit(0); });
  platform_.desktop.removeWindows();
}

void OrvaneApp::launch() {
  delegate_.willFinishLaunching();
  windows_.prepare(mainSceneId);
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
  delegate_.didFinishLaunching();
}

void OrvaneApp::reopen() {
  if (runtime_->isMenuBarOnly()) {
    runtime_->showMainWindow();
  } else if (delegate_.shouldHandleReopen()) {
    windows_.open(mainSceneId);
  }
}

void OrvaneApp::runAction(std::string_view name) {
  if (name == "refresh-now") {
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
  return makeMainContent();
}

std::unique_ptr<QWidget> OrvaneApp::makeMainContent() {
  return std::make_unique<BalanceMainSceneContent>(
      BalanceMainScene{.store = store_,
                       .runtime = runtime_,
                       .menuActions = menuActions_,
                       .format = platform_.balance.format,
                       .broadcasts = broadcasts_,
                       .application = platform_.desktop,
                       .windows = windows_},
      BalanceViewSettings{.poolWebHost = settings_.poolWebHost, .commands = commands()});
}

Menu OrvaneApp::commands() {
  auto& application = platform_.desktop;
  return {{helpCommand.menuItem(windows_, application),
           aboutCommand.menuItem(windows_, application),
           MenuItem::separator(),
           {.title = "Refresh Now",
            .keyEquivalent = "r",
            .action = [actions = menuActions_] { actions->refreshNow(); }},
           MenuItem::separator(),
           {.title = "Quit Orvane", .keyEquivalent = "q", .action = [&application] {
              application.terminate();
            }}}};
}

void OrvaneApp::end() {
  if (const auto tell = std::exchange(onEnd, nullptr)) { tell(); }
  // Gone for the user at once, even when a last write takes its time.
  for (auto* const window : platform_.desktop.windows()) {
    window->orderOut();
  }
  exit_.begin();
}

}  // namespace orvane
