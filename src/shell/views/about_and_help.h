#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include "shell/view_models/app_info.h"

namespace orvane {
/// The about and the help window end in the same foot: the brand line, which leads to `brandUrl`
/// or is plain text when that is empty, and a Close button, which runs `closeAction` or closes the
/// view's window when there is none.

/// The about window's content: icon, name, version and summary.
class FennickAboutView final : public QWidget {
 public:
  /// `versionText`: see `applicationVersionText`.
  FennickAboutView(const FennickAppInfo& app, const std::function<void()>& closeAction,
                   const std::string& brandUrl, const std::string& versionText,
                   QWidget* parent = nullptr);
};

/// The help window's content: the summary and the help paragraphs.
class FennickAppHelpView final : public QWidget {
  Q_OBJECT

 public:
  FennickAppHelpView(const FennickAppInfo& app, const std::function<void()>& closeAction,
                     const std::string& brandUrl, QWidget* parent = nullptr);
};
}  // namespace orvane
