// Shows the windows of the application in every state worth looking at and writes a picture of
// each: gallery [folder] [style]. The scale is the desktop's (QT_SCALE_FACTOR=2 for twice).

#include <QApplication>
#include <QDir>
#include <QStyleFactory>

#include "platform/desktop/qt/color_scheme.h"
#include "platform/desktop/symbols.h"
#include "shell/sample_states.h"
#include "shell/view_models/app_info.h"
#include "shell/views/about_and_help.h"
#include "shell/views/balance_view.h"

namespace orvane::test {
namespace {

class Gallery {
 public:
  Gallery(const QDir& folder, QString suffix) : folder_(folder), suffix_(std::move(suffix)) {}

  void takeMainWindow(const NamedState& sample) {
    BalanceContent content(sample.state, format_, "pool.braiins.com", {});
    take(content, QString::fromStdString(sample.name));
  }

  void takeAboutAndHelp() {
    FennickAboutView about(orvaneAppInfo(), {}, "https://tools.example/",
                           applicationVersionText("1.0.0", "42"));
    take(about, QStringLiteral("about"));
    FennickAppHelpView help(orvaneAppInfo(), {}, "");
    take(help, QStringLiteral("help"));
  }

 private:
  void take(QWidget& window, const QString& name) {
    window.show();
    QCoreApplication::processEvents();
    window.grab().save(folder_.filePath(name + suffix_ + QStringLiteral(".png")));
    window.hide();
  }

  QDir folder_;
  QString suffix_;
  LocaleFormat format_{{.numbers = "en_US", .dates = "en_US", .timeZone = "UTC"}};
};

void takeAll(const QDir& folder, const QString& suffix) {
  Gallery gallery(folder, suffix);
  for (const auto& sample : namedStates()) {
    gallery.takeMainWindow(sample);
  }
  gallery.takeAboutAndHelp();
}

}  // namespace
}  // namespace orvane::test

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setWindowIcon(orvane::applicationIcon());
  const auto arguments = QApplication::arguments();
  const QDir folder(arguments.value(1, QStringLiteral(".")));
  if (!folder.mkpath(QStringLiteral("."))) { return 1; }
  QApplication::setStyle(arguments.value(2, QStringLiteral("fusion")));
  orvane::test::takeAll(folder, QStringLiteral("-light"));
  orvane::ColorScheme::apply(orvane::ColorScheme::Preference::dark);
  orvane::test::takeAll(folder, QStringLiteral("-dark"));
  return 0;
}
