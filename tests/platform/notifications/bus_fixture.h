#pragma once

#include <utility>

#include "platform/eventloop/real_time.h"
#include "platform/notifications/notification_center.h"

namespace orvane::test {

inline NotificationRequest paymentRequest(std::string identifier, std::string body = "1 sats") {
  return {.identifier = std::move(identifier),
          .title = "Payment received",
          .body = std::move(body),
          .sound = NotificationSound::standard};
}

}  // namespace orvane::test
