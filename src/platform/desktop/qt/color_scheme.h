#pragma once

#include <QDBusMessage>
#include <QObject>

namespace orvane {

/// Follows the desktop's choice between light and dark, as the desktop portal tells it, while the
/// program runs. Where Qt knows the desktop's colours by itself, and where there is no portal,
/// nothing is changed.
class ColorScheme final : public QObject {
  Q_OBJECT

 public:
  /// What the user prefers; the numbers are the portal's.
  enum class Preference { none = 0, dark = 1, light = 2 };

  /// Asks and listens; the answer comes later. After the QApplication.
  ColorScheme();

  /// Gives the application the palette for `preference`.
  static void apply(Preference preference);

 private Q_SLOTS:
  void handleSetting(const QDBusMessage& message);

 private:
  void ask();
};

}  // namespace orvane
