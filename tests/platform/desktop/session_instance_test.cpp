#include "platform/desktop/qt/session_instance.h"
#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>
#include <gmock/gmock.h>
#include "platform/eventloop/qt_executor.h"

namespace orvane::test { namespace {

using testing::ElementsAre;

const QString id = QStringLiteral("com.quorvex.OrvaneTest");

/// What a program ends with. Meanwhile this process listens, or hangs.
int run(const QString& program, const QStringList& arguments,
        const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment(),
        bool listening = true) {
  QProcess process;
  process.setProcessEnvironment(environment);
  process.setStandardOutputFile(QProcess::nullDevice());
  QEventLoop loop;
  QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
  process.start(program, arguments);
  if (listening) { loop.exec(); }
  process.waitForFinished();
  return process.exitCode();
}

/// Starts the application once more and returns the role that it ends with.
InstanceRole secondStart(const char* variable, const char* value = "", bool listening = true) {
  auto environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QLatin1String(variable), QLatin1String(value));
  return static_cast<InstanceRole>(run(QCoreApplication::applicationFilePath(),
                                       {QStringLiteral("--claim"), id}, environment, listening));
}

class SessionInstanceTest : public testing::Test {
 protected:
  void SetUp() override {
    instance.setRequests(
        {.activate = [this](const std::string& token) { heard.push_back("activate " + token); },
         .runAction = [this](const std::string& name,
                             const std::string& token) { heard.push_back(name + " " + token); }});
    ASSERT_EQ(instance.claim({}), InstanceRole::first);
  }
  void TearDown() override { instance.release(); }

  QtExecutor executor;
  SessionBus bus{executor};
  SessionInstance instance{bus, id};
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
  const auto call = [](const QString& method, const QStringList& arguments) {
    EXPECT_EQ(run("gdbus", QStringList{"call", "--session", "--dest", id, "--object-path",
                                       "/com/quorvex/OrvaneTest", "--method",
                                       "org.freedesktop.Application." + method} +
                               arguments),
              0);
  };
  call("Activate", {"{'activation-token': <'t'>}"});
  call("Open", {"@as []", "{'desktop-startup-id': <'s'>}"});
  call("ActivateAction", {"show-help", "@av []", "{'activation-token': <'t'>}"});
  EXPECT_THAT(heard, ElementsAre("activate t", "activate s", "show-help t"));
}

TEST_F(SessionInstanceTest, AnswersWhatCameWithTheStartBeforeAnythingElseHappens) {
  auto launcher = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "launcher");
  auto request = QDBusMessage::createMethodCall(id, "/com/quorvex/OrvaneTest",
                                                "org.freedesktop.Application", "ActivateAction");
  request << "start-quietly" << QVariantList() << QVariantMap();
  launcher.send(request);
  launcher.call(callOfBusItself("GetId"));  // it is on its way to us
  instance.answerEarlyRequests();
  EXPECT_THAT(heard, ElementsAre("start-quietly "));
  QDBusConnection::disconnectFromBus("launcher");
}

}}  // namespace orvane::test
