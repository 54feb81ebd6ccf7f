#include "platform/desktop/qt/save_dialog.h"
#include <QDBusArgument>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPointer>
#include <QStandardPaths>
#include <QUrl>
#include <utility>
#include "platform/bus/desktop_portal.h"

namespace orvane {
namespace {
using namespace std::chrono_literals;

const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto chooserInterface = QStringLiteral("org.freedesktop.portal.FileChooser");
const auto requestInterface = QStringLiteral("org.freedesktop.portal.Request");

/// A portal answers at once that it has opened a dialog, or has none; its start takes a moment.
constexpr auto patience = 5s;

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

SaveDialog::SaveDialog(SessionBus& bus)
    : bus_(bus),
      response_(bus, {}, requestInterface, QStringLiteral("Response"),
                [this](const QDBusMessage& response) { hear(response); }) {}

void SaveDialog::ask(QWidget& over, const QString& fileName, Use use) {
  if (!bus_.isOpen()) {
    askWithQt(over, fileName, std::move(use));
    return;
  }
  const auto token = QStringLiteral("orvane%1").arg(++lastRequest_);
  // Known before the call, so that no answer is missed.
  const auto request =
      QStringLiteral("%1/request/%2/%3")
          .arg(portalPath, bus_.connection().baseService().mid(1).replace(u'.', u'_'), token);
  asked_[request] = use;
  auto call = QDBusMessage::createMethodCall(portalService, portalPath, chooserInterface,
                                             QStringLiteral("SaveFile"));
  call << portalWindow(over) << title()
       << QVariantMap{{QStringLiteral("handle_token"), token},
                      {QStringLiteral("current_name"), fileName}};
  callOnBus(
      bus_, call, this,
      [this, request, fileName, use = std::move(use),
       over = QPointer(&over)](const BusReply& reply) {
        if (reply) { return; }
        asked_.erase(request);
        if (over) { askWithQt(*over, fileName, use); }
      },
      patience);
}

void SaveDialog::hear(const QDBusMessage& response) {
  const auto asked = asked_.extract(response.path());
  if (asked.empty() || response.arguments().value(0).toUInt() != 0) { return; }
  const auto results = qdbus_cast<QVariantMap>(response.arguments().value(1));
  const auto uris = results.value(QStringLiteral("uris")).toStringList();
  const auto path = QUrl(uris.value(0)).toLocalFile();
  if (!path.isEmpty()) { asked.mapped()(path); }
}
}  // namespace orvane
