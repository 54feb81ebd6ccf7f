#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include "platform/desktop/desktop_application.h"

namespace orvane {
/// The colours that the status item uses; none: the symbol is a template that follows the panel.
enum class StatusColor { systemGreen, systemOrange };

/// A size in points; one point is one pixel on a display at 100 %.
struct PointSize {
  double width = 0;
  double height = 0;
  bool operator==(const PointSize&) const = default;
};

/// What the status item shows: a symbol, and a text beside it when there is one. The parts are
/// kept beside the size of the drawn whole, so that each kind of tray host gets the presentation
/// that it can show.
struct StatusImage {
  std::string symbolName;
  double symbolPointSize = 13;
  std::optional<StatusColor> symbolColor;
  std::string text;  ///< empty: the symbol alone
  double textPointSize = 9;
  StatusColor textColor = StatusColor::systemGreen;
  PointSize size;                        ///< of the whole
  std::string accessibilityDescription;  ///< what a screen reader says

  bool operator==(const StatusImage&) const = default;
};

/// One icon in the status area of the desktop, with what a user can do to it.
class StatusItem {
 public:
  /// The length that stands for "as wide as the area is high".
  static constexpr double squareLength = -2;
  /// Called with what the user did. A right click (or a host that asks for the menu) arrives as
  /// `rightMouseUp`: the receiver sets a menu, calls `performClick` and removes the menu again.
  using Action = std::function<void(const std::optional<DesktopEvent>&)>;

  virtual ~StatusItem() = default;

  virtual void setLength(double points) = 0;
  /// Nothing: no image at all.
  virtual void setImage(const std::optional<StatusImage>& image) = 0;
  virtual void setToolTip(const std::string& text) = 0;
  virtual void setAction(Action action) = 0;
  virtual void setMenu(std::optional<Menu> menu) = 0;
  /// The rows of the menu may be others than before: a host that keeps a copy is told.
  virtual void noticeMenu() = 0;
  /// Shows the menu that is set.
  virtual void performClick() = 0;

  /// Somebody is there to draw it. False as long as that is not known.
  [[nodiscard]] virtual bool hasHost() const = 0;
};

/// The status area of the desktop.
class StatusBar {
 public:
  virtual ~StatusBar() = default;

  /// Nothing when the desktop gives no item now; asking again later may succeed.
  [[nodiscard]] virtual std::unique_ptr<StatusItem> createItem(double length) = 0;

  /// The size of a symbol drawn at `pointSize`; nothing when there is no such symbol.
  [[nodiscard]] virtual std::optional<PointSize> symbolSize(const std::string& name,
                                                            double pointSize) const = 0;
  /// The size of `text` in the semibold interface font with digits of equal width.
  [[nodiscard]] virtual PointSize textSize(const std::string& text, double pointSize) const = 0;
};
}  // namespace orvane
