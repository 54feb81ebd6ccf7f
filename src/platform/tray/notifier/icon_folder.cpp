#include "platform/tray/notifier/icon_folder.h"
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <cerrno>
#include <csignal>
#include <utility>
#include "platform/bus/desktop_portal.h"

namespace orvane {
namespace {
const auto folderPrefix = QStringLiteral("orvane-status-");

/// Another process; one with our number had it before us, as in a sandbox, where they begin anew.
bool isAnother(qint64 process) {
  return process != QCoreApplication::applicationPid() &&
         (kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM);
}

void removeLeftovers(const QDir& runtime) {
  for (const auto& name : runtime.entryList({folderPrefix + u'*'}, QDir::Dirs)) {
    bool isNumber = false;
    const auto process = name.mid(folderPrefix.size()).toLongLong(&isNumber);
    if (isNumber && process > 0 && !isAnother(process)) {
      QDir(runtime.filePath(name)).removeRecursively();
    }
  }
}
}  // namespace

QString sharedFolder(const QString& runtime, const QString& flatpakInfo) {
  if (runtime.isEmpty() || !QFile::exists(flatpakInfo)) { return runtime; }
  const auto name = QSettings(flatpakInfo, QSettings::IniFormat).value("Application/name");
  const QDir shared(runtime + QStringLiteral("/app/") + name.toString());
  return !name.toString().isEmpty() && shared.exists() ? shared.path() : QString();
}

IconFolder::IconFolder() {
  const auto shared = sharedFolder(
      QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation), flatpakInfoFile);
  if (shared.isEmpty()) { return; }
  const QDir directory(shared);
  removeLeftovers(directory);
  const auto name = folderPrefix + QString::number(QCoreApplication::applicationPid());
  if (directory.mkpath(name)) { path_ = directory.filePath(name); }
}

IconFolder::~IconFolder() {
  if (!path_.isEmpty()) { QDir(path_).removeRecursively(); }
}

const IconFile& IconFolder::store(const QImage& image) {
  if (path_.isEmpty() || image == image_) { return newest_; }
  const auto number = QString::number(++count_);
  if (!previous_.folder.isEmpty()) { QDir(previous_.folder).removeRecursively(); }
  previous_ = std::exchange(newest_, {.folder = path_ + u'/' + number,
                                      .name = QStringLiteral("orvane-status-") + number});
  const bool isWritten = QDir(path_).mkdir(number) &&
                         image.save(newest_.folder + u'/' + newest_.name + QStringLiteral(".png"));
  if (!isWritten) { newest_ = {}; }
  image_ = isWritten ? image : QImage();
  return newest_;
}
}  // namespace orvane
