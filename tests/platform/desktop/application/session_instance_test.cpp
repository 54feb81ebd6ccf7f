#include "platform/desktop/instance/session_instance.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QEventLoop>
#include <QProcess>

#include <gmock/gmock.h>

namespace orvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QString id = QStringLiteral("com.quorvex.OrvaneTest");

/// Starts the application once more and returns the role that it ended with.
class SecondStart {
 public:
  explicit SecondStart(const QProcessEnvironment& additions = {}) {
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DESKTOP_STARTUP_ID"));
    environment.remove(QStringLiteral("XDG_ACTIVATION_TOKEN"));
    environment.insert(additions);
    process_.setProcessEnvironment(environment);
    process_.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--claim"), id});
  }

  InstanceRole role() {
    QEventLoop loop;
    QObject::connect(&process_, &QProcess::finished, &loop, &QEventLoop::quit);
    if (process_.state() != QProcess::NotRunning) loop.exec();
    return static_cast<InstanceRole>(process_.exitCode());
  }
  /// The same without an event loop: this process hears nothing meanwhile.
  InstanceRole roleWhileWeHang() {
    process_.waitForFinished();
    return static_cast<InstanceRole>(process_.exitCode());
  }

 private:
  QProcess process_;
};

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
  QProcessEnvironment launcher;
  launcher.insert(QStringLiteral("DESKTOP_STARTUP_ID"), QStringLiteral("panel_TIME42"));
  EXPECT_EQ(SecondStart(launcher).role(), InstanceRole::handedOver);
  EXPECT_THAT(heard, ElementsAre("activate panel_TIME42"));
}

TEST_F(SessionInstanceTest, ThatDoesNotAnswerDoesNotHoldASecondStartUp) {
  EXPECT_EQ(SecondStart().roleWhileWeHang(), InstanceRole::unreachable);
}

TEST_F(SessionInstanceTest, ThatEndsMakesRoomForTheNext) {
  instance.release();
  EXPECT_EQ(SecondStart().role(), InstanceRole::first);
  EXPECT_THAT(heard, IsEmpty());
}

TEST_F(SessionInstanceTest, AnswersLaunchers) {
  const QVariantMap data{{QStringLiteral("activation-token"), QStringLiteral("t")}};
  call(QStringLiteral("Activate"), {data});
  call(QStringLiteral("Open"), {QStringList(), QVariantMap()});
  call(QStringLiteral("ActivateAction"), {QStringLiteral("show-help"), QVariantList(), data});
  EXPECT_THAT(heard, ElementsAre("activate t", "activate ", "show-help t"));
}

TEST(SessionInstanceWithoutABus, RunsAlone) {
  QProcessEnvironment nowhere;
  nowhere.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("unix:path=/nowhere"));
  EXPECT_EQ(SecondStart(nowhere).role(), InstanceRole::alone);
}

}  // namespace
}  // namespace orvane::test
