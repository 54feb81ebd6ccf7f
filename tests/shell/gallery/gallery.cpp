// Shows the windows of the application in every state worth looking at and writes a picture of
// each: gallery [folder] [style]. The scale is the desktop's (QT_SCALE_FACTOR=2 for twice).

#include <QApplication>
#include <QDir>
#include "platform/desktop/qt/color_scheme.h"
#include "platform/desktop/symbols.h"
#include "shell/sample_states.h"
#include "shell/views/about_and_help.h"
#include "shell/views/balance_view.h"
#include "shell/views/payments_view.h"

namespace orvane::test { namespace {

void take(QWidget& window, const QString& path) {
  window.show();
  QCoreApplication::processEvents();
  window.grab().save(path + QStringLiteral(".png"));
}

void takeAll(const QString& folder, const QString& suffix) {
  const LocaleFormat format({.numbers = "en_US", .dates = "en_US", .timeZone = "UTC"});
  const auto path = [&](const std::string& name) {
    return folder + u'/' + QString::fromStdString(name) + suffix;
  };
  for (const auto& sample : samples()) {
    StoreOnFakes fakes;
    sample.showIn(fakes);
    BalanceView view(*fakes.store, format, {.poolWebHost = "pool.braiins.com"}, [] {});
    take(view, path(sample.name));
  }
  StoreOnFakes fakes;
  Sample{.name = {}, .figures = watchedAddress()}.showIn(fakes);
  PaymentsView payments(*fakes.store, format, "explorer.example");
  payments.resize(720, 420);
  take(payments, path("payments"));
  FennickAboutView about(orvaneAppInfo(), {}, "https://tools.example/",
                         applicationVersionText("1.0.0", "42"));
  take(about, path("about"));
  FennickAppHelpView help(orvaneAppInfo(), {}, "");
  take(help, path("help"));
}

}}  // namespace orvane::test

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setWindowIcon(orvane::applicationIcon());
  const auto arguments = QApplication::arguments();
  const auto folder = arguments.value(1, QStringLiteral("."));
  if (!QDir().mkpath(folder)) { return 1; }
  QApplication::setStyle(arguments.value(2, QStringLiteral("fusion")));
  orvane::ApplicationLook look;
  orvane::test::takeAll(folder, QStringLiteral("-light"));
  look.follow(orvane::ColorPreference::dark);
  orvane::test::takeAll(folder, QStringLiteral("-dark"));
  return 0;
}
