#include "platform/desktop/qt/session_instance.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QEventLoop>
#include <QProcess>

#include <gmock/gmock.h>

namespace orvane::test {
namespace {

using testing::ElementsAre;

const QString id = QStringLiteral("com.quorvex.OrvaneTest");

/// Starts the application once more and returns the role that it ends with. Meanwhile this process
/// listens, or hangs.
InstanceRole secondStart(const char* variable, const char* value = "", bool listening = true) {
  auto environment = QProcessEnvironment::systemEnvironment();
  environment.remove(QStringLiteral("DESKTOP_STARTUP_ID"));
  environment.remove(QStringLiteral("XDG_ACTIVATION_TOKEN"));
  environment.insert(QLatin1String(variable), QLatin1String(value));
  QProcess process;
  process.setProcessEnvironment(environment);
  QEventLoop loop;
  QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
  process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--claim"), id});
  if (listening) { loop.exec(); }
  process.waitForFinished();
  return static_cast<InstanceRole>(process.exitCode());
}

class SessionInstanceTest : public testing::Test {
 protected:
  void SetUp() override {
    instance.setRequests(
        {.activate = [this](const std::string& token) { heard.push_back("activate " + token); },
         .runAction = [this](const std::string& name,
                             const std::string& token) { heard.push_back(name + " " + token); }});
    ASSERT_EQ(instance.claim(), InstanceRole::first);
  }
  void TearDown() override { instance.release(); }

  void call(const QString& method, const QVariantList& arguments) {
    auto message =
        QDBusMessage::createMethodCall(id, QStringLiteral("/com/quorvex/OrvaneTest"),
                                       QStringLiteral("org.freedesktop.Application"), method);
    message.setArguments(arguments);
    auto peer =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("launcher"));
    QDBusPendingCallWatcher watcher(peer.asyncCall(message));
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    loop.exec();
    EXPECT_FALSE(watcher.isError()) << watcher.error().message().toStdString();
    QDBusConnection::disconnectFromBus(QStringLiteral("launcher"));
  }

  SessionInstance instance{id};
  std::vector<std::string> heard;
};

TEST_F(SessionInstanceTest, IsShownByASecondStartWhichHandsItsPermissionOver) {
  for (const auto* const variable : {"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"}) {
    heard.clear();
    EXPECT_EQ(secondStart(variable, "panel_TIME42"), InstanceRole::handedOver) << variable;
    EXPECT_THAT(heard, ElementsAre("activate panel_TIME42")) << variable;
  }
}

TEST_F(SessionInstanceTest, HoldsNoSecondStartUpWhenItHangsOrEndsOrNobodyIsReached) {
  EXPECT_EQ(secondStart("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere"), InstanceRole::alone);
  EXPECT_EQ(secondStart("unused", "", false), InstanceRole::unreachable);
  instance.release();
  EXPECT_EQ(secondStart("unused"), InstanceRole::first);
}

TEST_F(SessionInstanceTest, AnswersLaunchers) {
  const QVariantMap data{{QStringLiteral("activation-token"), QStringLiteral("t")}};
  call(QStringLiteral("Activate"), {data});
  call(QStringLiteral("Open"), {QStringList(), QVariantMap()});
  call(QStringLiteral("ActivateAction"), {QStringLiteral("show-help"), QVariantList(), data});
  EXPECT_THAT(heard, ElementsAre("activate t", "activate ", "show-help t"));
}

}  // namespace
}  // namespace orvane::test
