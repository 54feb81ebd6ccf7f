#include "shell/app/program.h"
#include <QApplication>
#include <QDir>
#include <cstdlib>
#include <filesystem>
#include <utility>
#include "platform/bus/desktop_portal.h"
#include "platform/bus/session_bus.h"
#include "platform/defaults/sqlite_defaults.h"
#include "platform/desktop/qt/color_scheme.h"
#include "platform/desktop/qt/login_start.h"
#include "platform/desktop/qt/qt_desktop_application.h"
#include "platform/desktop/qt/save_dialog.h"
#include "platform/desktop/qt/session_instance.h"
#include "platform/desktop/qt/termination_signals.h"
#include "platform/desktop/symbols.h"
#include "platform/http/proxy_lookup.h"
#include "platform/http/qt_http_transport.h"
#include "platform/keychain/keychain.h"
#include "platform/keychain/secret_service_keychain.h"
#include "platform/network/qt_network_watch.h"
#include "platform/notifications/desktop_notification_center.h"
#include "platform/secret/secret.h"
#include "platform/tray/desktop_status_bar.h"
#include "shell/app/orvane_app.h"
#include "shell/views/colors.h"
#include "shell/views/qt_text.h"
#include "shell/views/screen_reader.h"

namespace orvane {
namespace {
const QString applicationId = QStringLiteral("com.quorvex.Orvane");

void introduceToDesktop(const std::string& version) {
  QApplication::setApplicationName(applicationId);
  QApplication::setApplicationVersion(toQString(version));
  QApplication::setDesktopFileName(applicationId);
  QApplication::setWindowIcon(applicationIcon());
}

std::filesystem::path settingsFileOfUser() {
  return settingsFile(qgetenv("XDG_CONFIG_HOME").toStdString(), QDir::homePath().toStdString());
}

/// Elsewhere the desktop switches it.
std::optional<StartAtLogin> switchOf(LoginStart& start) {
  if (!isInFlatpak()) { return std::nullopt; }
  return StartAtLogin{.isOn = [&start] { return start.isOn(); },
                      .set = [&start](bool on) { start.set(on); }};
}

/// Everything that exists as long as the one running application does.
int runInstance(Executor& executor, SessionBus& bus, SessionInstance& instance,
                const QString& activationToken, const ProgramSettings& settings) {
  const ColorScheme colorScheme(bus, theme::wishHigherContrast);
  const LocaleFormat format(LocaleNames::fromEnvironment());
  SqliteDefaults defaults(settingsFileOfUser());
  QtHttpTransport transport({.extraCaFile = settings.extraCaFile});
  QtNetworkWatch network;
  SecretServiceKeychain keychain(bus);
  DesktopNotificationCenter notifications(bus);
  QtDesktopApplication desktop;
  desktop.setActivationToken(activationToken.toStdString());  // for the first window
  PortalRequests portal(bus);
  SaveDialog saveDialog(portal);
  LoginStart loginStart(portal, defaults);
  DesktopStatusBar statusBar(
      executor, [&desktop](const std::string& token) { desktop.setActivationToken(token); });

  OrvaneApp app(
      {.balance = {.executor = executor,
                   .transport = transport,
                   .defaults = defaults,
                   .keychain = keychain,
                   .notifications = notifications,
                   .network = network,
                   .format = format,
                   .hosts = settings.hosts,
                   .accessGroups = accessGroupsFromSetting(settings.keychainAccessGroups)},
       .desktop = desktop,
       .statusBar = statusBar},
      {.poolWebHost = settings.poolWebHost,
       .explorerWebHost = settings.explorerWebHost,
       .brandUrl = settings.brandUrl,
       .version = settings.version,
       .askWhereToSave = [&saveDialog](
                             QWidget& over, const QString& fileName,
                             const SaveDialog::Use& use) { saveDialog.ask(over, fileName, use); },
       .startAtLogin = switchOf(loginStart)});
  app.onEnd = [&instance] { instance.release(); };
  const auto reopen = [&app, &desktop](const std::string& token) {
    desktop.setActivationToken(token);
    app.reopen();
  };
  notifications.onActivated(reopen);
  const TerminationSignals signalsOfTheSession([&desktop] { desktop.terminate(); });
  instance.setRequests(
      {.activate = reopen,
       .runAction = [&app, &desktop](const std::string& name, const std::string& token) {
         // One that came with a refresh is for no window, now or later.
         desktop.setActivationToken(opensWindow(name) ? token : std::string());
         app.runAction(name);
       }});
  app.launch();
  instance.answerEarlyRequests();
  const int code = QApplication::exec();
  instance.setRequests({});
  return code;
}

int runApplication(int argc, char** argv, const ProgramSettings& settings) {
  const QString activationToken = activationTokenOfStart();
  nameApplicationForScreenReaders();
  const QApplication application(argc, argv);
  introduceToDesktop(settings.version);
  const auto executor = settings.makeExecutor();
  SessionBus bus(*executor);
  SessionInstance instance(bus, applicationId);
  switch (instance.claim(activationToken)) {
    case InstanceRole::first:
    case InstanceRole::alone:
      return runInstance(*executor, bus, instance, activationToken, settings);
    case InstanceRole::handedOver:
      return 0;
    case InstanceRole::unreachable:
      return 1;
  }
  return 1;
}
}  // namespace

int runProgram(int argc, char** argv, const ProgramSettings& settings) {
  refuseCoreDumps();
  wipeFreedMemory();
  const int code = runApplication(argc, argv, settings);
  // All that is ours has ended; what is left would wait for the network.
  if (isResolverAtWork()) { std::quick_exit(code); }
  return code;
}
}  // namespace orvane
