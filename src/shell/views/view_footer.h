#pragma once

#include <QWidget>
#include <functional>
#include <string>

namespace orvane {

/// The foot of the about and help windows: the brand line and the Close button.
class ViewFooter final : public QWidget {
  Q_OBJECT

 public:
  /// `brandUrl`: destination of the brand line; empty: plain text. Without a `closeAction` the
  /// button closes the window that the footer stands in.
  ViewFooter(const std::string& brandUrl, const std::function<void()>& closeAction,
             QWidget* parent = nullptr);
};

/// The application's icon, sharp at the device's own pixels.
class AppIconLabel final : public QWidget {
  Q_OBJECT

 public:
  explicit AppIconLabel(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace orvane
