#include "platform/desktop/status/desktop_status_bar.h"

#include <utility>

#include "platform/desktop/status/desktop_status_item.h"
#include "platform/desktop/status/drawing/status_drawing.h"
#include "platform/desktop/status/drawing/tabular_text.h"
#include "platform/desktop/symbols.h"

namespace orvane {

DesktopStatusBar::DesktopStatusBar(Executor& executor,
                                   std::function<void(const std::string& token)> activationToken)
    : executor_(executor),
      activationToken_(std::move(activationToken)),
      desktopNames_(
          orvane::desktopNames(qEnvironmentVariable("XDG_CURRENT_DESKTOP").toStdString())) {}

std::unique_ptr<StatusItem> DesktopStatusBar::createItem(double /*length*/) {
  return std::make_unique<DesktopStatusItem>(executor_, desktopNames_, activationToken_);
}

std::optional<PointSize> DesktopStatusBar::symbolSize(const std::string& name,
                                                      double pointSize) const {
  if (!hasSymbol(QString::fromStdString(name))) { return std::nullopt; }
  return symbolMeasure(QString::fromStdString(name), pointSize);
}

PointSize DesktopStatusBar::textSize(const std::string& text, double pointSize) const {
  const auto size = TabularText(pointSize).size(QString::fromStdString(text));
  return {.width = size.width(), .height = size.height()};
}

}  // namespace orvane
