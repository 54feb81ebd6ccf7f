#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "shell/view_models/app_info.h"

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

/// The about window's content: icon, name, version and summary.
class FennickAboutView final : public QWidget {
  Q_OBJECT

 public:
  /// Without a `closeAction` the Close button closes the view's window. `brandUrl`: destination of
  /// the brand line; empty: plain text. `versionText`: see `applicationVersionText`.
  FennickAboutView(const FennickAppInfo& app, const std::function<void()>& closeAction,
                   const std::string& brandUrl, const std::string& versionText,
                   QWidget* parent = nullptr);
};

/// The help window's content: the summary and the help paragraphs.
class FennickAppHelpView final : public QWidget {
  Q_OBJECT

 public:
  /// Without a `closeAction` the Close button closes the view's window. `brandUrl`: destination of
  /// the brand line; empty: plain text.
  FennickAppHelpView(const FennickAppInfo& app, const std::function<void()>& closeAction,
                     const std::string& brandUrl, QWidget* parent = nullptr);
};

}  // namespace orvane
