#pragma once

#include <QImage>
#include <QString>

namespace orvane {
/// The folder in which the host of the tray and the program both find a file under the same path:
/// the user's runtime directory, and within a Flatpak, whose runtime directory is a private one,
/// the part of it that it shares with the desktop. Empty when there is none.
/// \param flatpakInfo the file that says that this is a Flatpak, and which
[[nodiscard]] QString sharedFolder(const QString& runtime, const QString& flatpakInfo);

/// A file that holds an icon, as hosts are told of it: a folder, and a name without an ending. Both
/// are empty when there is none.
struct IconFile {
  QString folder;
  QString name;
};

/// Hands images to hosts that read icons from files. Another image gets another name, for hosts do
/// not read a name twice, in a folder of its own: GTK lists a folder once and looks again only
/// when its time, in whole seconds, has changed, so that a second file in it may stay unseen and
/// the user sees a broken picture. All of it goes with the object; what a killed process left
/// behind goes with the next one.
class IconFolder {
 public:
  IconFolder();
  ~IconFolder();
  IconFolder(const IconFolder&) = delete;
  IconFolder& operator=(const IconFolder&) = delete;

  /// Where the image is now, which is where it was if it is the same as before; empty when it
  /// could not be written. The one before it stays readable for hosts that are late.
  [[nodiscard]] const IconFile& store(const QImage& image);

 private:
  QString path_;  ///< empty when there is no place to write to
  QImage image_;
  IconFile newest_;
  IconFile previous_;
  int count_ = 0;
};
}  // namespace orvane
