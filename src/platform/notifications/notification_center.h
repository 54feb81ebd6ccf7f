#pragma once

#include <string>
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
}  // namespace orvane
