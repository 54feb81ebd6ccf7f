#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "shell/app_info.h"

namespace orvane {

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

}  // namespace orvane
