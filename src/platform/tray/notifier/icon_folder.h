#pragma once

#include <QImage>
#include <QString>

namespace orvane {
/// The folder in which the host of the tray and the program both find a file under the same path:
/// the user's runtime directory, and within a Flatpak, whose runtime directory is a private one,
/// the part of it that it shares with the desktop. Empty when there is none.
/// \param flatpakInfo the file that says that this is a Flatpak, and which
[[nodiscard]] QString sharedFolder(const QString& runtime, const QString& flatpakInfo);

/// Hands images to hosts that read icons from files. Each image gets a name of its own, for hosts
/// do not read a name twice. The folder goes with the object; what a killed process left behind
/// goes with the next one.
class IconFolder {
 public:
  IconFolder();
  ~IconFolder();
  IconFolder(const IconFolder&) = delete;
  IconFolder& operator=(const IconFolder&) = delete;

  /// Empty when there is no place to write to.
  [[nodiscard]] const QString& path() const { return path_; }

  /// The icon's name, which stands for a file in `path`; empty when it could not be written. The
  /// image before it stays readable for hosts that are late.
  [[nodiscard]] QString store(const QImage& image);

 private:
  QString path_;
  QString newest_;
  QString previous_;
  int count_ = 0;
};
}  // namespace orvane
