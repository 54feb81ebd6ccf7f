#include "platform/desktop/qt/color_scheme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QTest>

#include <gtest/gtest.h>

#include "platform/eventloop/qt_executor.h"

namespace orvane::test {
namespace {

bool isDark() {
  const auto palette = QApplication::palette();
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

/// The desktop's portal, on a connection of its own.
class Portal final : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

 public:
  explicit Portal(uint scheme) : scheme_(scheme) {
    bus_.registerObject(path, this, QDBusConnection::ExportAllSlots);
    bus_.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
  }
  ~Portal() override { QDBusConnection::disconnectFromBus(QStringLiteral("portal")); }

  void choose(uint scheme) {
    auto changed = QDBusMessage::createSignal(
        path, QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("SettingChanged"));
    changed << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("color-scheme")
            << QVariant::fromValue(QDBusVariant(scheme));
    bus_.send(changed);
  }

 public Q_SLOTS:
  QDBusVariant Read(const QString& /*group*/, const QString& /*key*/) {
    return QDBusVariant(QVariant::fromValue(QDBusVariant(scheme_)));
  }

 private:
  const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
  QDBusConnection bus_ =
      QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("portal"));
  uint scheme_;
};

TEST(ColorScheme, FollowsThePortalWhileTheProgramRuns) {
  Portal portal(1);
  QtExecutor executor;
  SessionBus bus(executor);
  const ColorScheme scheme(bus);
  EXPECT_FALSE(isDark());  // nothing waits for the answer
  ASSERT_TRUE(QTest::qWaitFor(isDark));
  for (const uint preference : {0U, 1U, 2U}) {
    portal.choose(preference);
    ASSERT_TRUE(QTest::qWaitFor([&] { return isDark() == (preference == 1); })) << preference;
  }
}

TEST(ColorScheme, LeavesThePaletteAloneWithoutAPortal) {
  const auto before = QApplication::palette();
  QtExecutor executor;
  SessionBus bus(executor);
  const ColorScheme scheme(bus);
  QTest::qWait(50);
  EXPECT_EQ(QApplication::palette(), before);
}

}  // namespace
}  // namespace orvane::test

#include "color_scheme_test.moc"
