#include "platform/desktop/status/icon_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <cerrno>
#include <csignal>
#include <utility>

namespace orvane {
namespace {

const auto prefix = QStringLiteral("orvane-status-");

bool isRunning(qint64 process) {
  return kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM;
}

void removeLeftovers(const QDir& runtime) {
  for (const auto& name : runtime.entryList({prefix + u'*'}, QDir::Dirs)) {
    bool isNumber = false;
    const auto process = name.mid(prefix.size()).toLongLong(&isNumber);
    if (isNumber && process > 0 && !isRunning(process)) {
      QDir(runtime.filePath(name)).removeRecursively();
    }
  }
}

}  // namespace

IconFolder::IconFolder() {
  const auto runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  if (runtime.isEmpty()) { return; }
  const QDir directory(runtime);
  removeLeftovers(directory);
  const auto name = prefix + QString::number(QCoreApplication::applicationPid());
  if (directory.mkpath(name)) { path_ = directory.filePath(name); }
}

IconFolder::~IconFolder() {
  if (!path_.isEmpty()) { QDir(path_).removeRecursively(); }
}

QString IconFolder::store(const QImage& image) {
  if (path_.isEmpty()) { return {}; }
  auto name = QStringLiteral("orvane-status-%1").arg(++count_);
  const auto file = path_ + u'/' + name + QStringLiteral(".png");
  if (!image.save(file)) { return {}; }
  if (!previous_.isEmpty()) { QFile::remove(previous_); }
  previous_ = std::exchange(newest_, file);
  return name;
}

}  // namespace orvane
