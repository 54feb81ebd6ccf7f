#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "shell/app_info.h"

namespace orvane {

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
