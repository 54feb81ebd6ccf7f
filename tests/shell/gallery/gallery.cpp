// Shows the windows of the application in every state worth looking at and writes a picture of
// each: gallery [folder] [style]. The scale is the desktop's (QT_SCALE_FACTOR=2 for twice).

#include <QApplication>
#include <QDir>
#include <QStyleFactory>

#include "platform/desktop/symbols.h"
#include "shell/app_info.h"
#include "shell/sample_states.h"
#include "shell/views/about_view.h"
#include "shell/views/balance_content.h"
#include "shell/views/help_view.h"

namespace orvane::test {
namespace {

QPalette darkPalette() {
  QPalette palette(QColor(0x35, 0x38, 0x3c), QColor(0x26, 0x28, 0x2b));
  palette.setColor(QPalette::Base, QColor(0x1e, 0x20, 0x22));
  palette.setColor(QPalette::Link, QColor(0x6c, 0xb4, 0xff));
  palette.setColor(QPalette::Highlight, QColor(0x3d, 0x8b, 0xe0));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, QColor(0xec, 0xed, 0xee));
    palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x83, 0x87));
  }
  palette.setColor(QPalette::PlaceholderText, QColor(0x8a, 0x8d, 0x91));
  return palette;
}

BalanceActions noActions() {
  return {.refresh = [] {},
          .loadHistory = [] {},
          .setToken = [](const std::string&) {},
          .setOwnAddress =
              [](const std::string&) {
                return std::optional<std::string>(
                    "This is not a Bitcoin mainnet address. It starts with bc1, 1 or 3.");
              },
          .setUnit = [](BalanceUnit) {},
          .setFiatCurrency = [](PreferredFiatCurrency) {},
          .close = [] {},
          .commands = {{{.title = "Orvane Help", .keyEquivalent = "?"}}}};
}

class Gallery {
 public:
  Gallery(const QDir& folder, QString suffix) : folder_(folder), suffix_(std::move(suffix)) {}

  void takeMainWindow(const NamedState& sample) {
    BalanceContent content(sample.state, format_, "pool.braiins.com", noActions());
    take(content, QString::fromStdString(sample.name));
  }

  void takeRejectedAddress() {
    const BalanceState state;
    BalanceContent content(state, format_, "pool.braiins.com", noActions());
    content.show();
    auto* const field = content.findChildren<QLineEdit*>().last();
    field->setText(QStringLiteral("bc1-not-an-address"));
    Q_EMIT field->returnPressed();
    take(content, QStringLiteral("address-rejected"));
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
  gallery.takeRejectedAddress();
  gallery.takeAboutAndHelp();
}

}  // namespace
}  // namespace orvane::test

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setWindowIcon(orvane::applicationIcon());
  const auto arguments = QApplication::arguments();
  const QDir folder(arguments.value(1, QStringLiteral(".")));
  if (!folder.mkpath(QStringLiteral("."))) return 1;
  QApplication::setStyle(arguments.value(2, QStringLiteral("fusion")));
  orvane::test::takeAll(folder, QStringLiteral("-light"));
  QApplication::setPalette(orvane::test::darkPalette());
  orvane::test::takeAll(folder, QStringLiteral("-dark"));
  return 0;
}
