#include "platform/desktop/qt/save_dialog.h"
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPointer>
#include <QStandardPaths>
#include <QUrl>
#include <utility>

namespace orvane {
namespace {
QString title() { return QObject::tr("Save"); }

/// The window as the portal names it; empty where it cannot be named.
QString portalWindow(const QWidget& over) {
  const bool isX11 = QGuiApplication::platformName() == QStringLiteral("xcb");
  return isX11 ? QStringLiteral("x11:%1").arg(over.window()->winId(), 0, 16) : QString();
}

void askWithQt(QWidget& over, const QString& fileName, SaveDialog::Use use) {
  auto* const dialog = new QFileDialog(
      over.window(), title(), QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setDefaultSuffix(QFileInfo(fileName).suffix());
  dialog->selectFile(fileName);
  QObject::connect(dialog, &QFileDialog::fileSelected, dialog, std::move(use));
  dialog->open();
}
}  // namespace

void SaveDialog::ask(QWidget& over, const QString& fileName, const Use& use) {
  portal_.send(
      {.interface = QStringLiteral("org.freedesktop.portal.FileChooser"),
       .method = QStringLiteral("SaveFile"),
       .arguments = {portalWindow(over), title()},
       .options = {{QStringLiteral("current_name"), fileName}}},
      [use](const QVariantMap& results) {
        const auto uris = results.value(QStringLiteral("uris")).toStringList();
        const auto path = QUrl(uris.value(0)).toLocalFile();
        if (!path.isEmpty()) { use(path); }
      },
      [use, fileName, over = QPointer(&over)] {
        if (over) { askWithQt(*over, fileName, use); }
      });
}
}  // namespace orvane
