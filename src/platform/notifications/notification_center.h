#pragma once

#include <string>
#include <utility>
#include <vector>
#include "platform/async/task.h"

namespace orvane {
/// `critical` is for rare news that the user should not miss.
enum class NotificationSound { standard, critical };

/// One notification, delivered at once. A later one with the same identifier replaces it.
struct NotificationRequest {
  std::string identifier;
  std::string title;
  std::string body;  ///< plain text
  NotificationSound sound = NotificationSound::standard;

  bool operator==(const NotificationRequest&) const = default;
};

/// The notification service of the desktop.
class NotificationCenter {
 public:
  virtual ~NotificationCenter() = default;

  /// Whether notifications with a text and a sound may be shown; false also when that cannot be
  /// found out.
  [[nodiscard]] virtual Task<bool> requestAuthorization() = 0;

  /// Shows one notification; false when the service did not take it.
  [[nodiscard]] virtual Task<bool> add(NotificationRequest request) = 0;
};

/// Shows one after the other, when notifications may be shown. `center` outlives the task.
[[nodiscard]] inline Task<void> postInOrder(NotificationCenter& center,
                                            std::vector<NotificationRequest> requests) {
  const bool granted = co_await center.requestAuthorization();
  if (!granted) { co_return; }
  for (NotificationRequest& request : requests) {
    // One that the service does not take must not cost the user those behind it.
    (void)co_await center.add(std::move(request));
  }
}
}  // namespace orvane
