#pragma once

#include <set>
#include "platform/async/timer.h"
#include "platform/notifications/notification_center.h"

namespace orvane::test {
/// A notification service whose screen is a list.
class FakeNotificationCenter final : public NotificationCenter {
 public:
  bool grantsAuthorization = true;
  std::set<std::string> refused;    ///< the identifiers that `add` does not take
  ExecutorClock::duration delay{};  ///< how long each of its answers takes

  /// How often it was asked for authorization.
  [[nodiscard]] int authorizationRequests() const { return authorizationRequests_; }
  /// Every request that it was given, refused ones among them, in the order of arrival.
  [[nodiscard]] const std::vector<NotificationRequest>& received() const { return received_; }
  /// Those that it took.
  [[nodiscard]] const std::vector<NotificationRequest>& shown() const { return shown_; }

  [[nodiscard]] Task<bool> requestAuthorization() override {
    ++authorizationRequests_;
    const SleepEnd end = co_await sleepFor(delay);
    co_return end == SleepEnd::elapsed&& grantsAuthorization;
  }
  [[nodiscard]] Task<bool> add(NotificationRequest request) override {
    received_.push_back(request);
    const SleepEnd end = co_await sleepFor(delay);
    if (end != SleepEnd::elapsed || refused.contains(request.identifier)) { co_return false; }
    shown_.push_back(std::move(request));
    co_return true;
  }

 private:
  int authorizationRequests_ = 0;
  std::vector<NotificationRequest> received_;
  std::vector<NotificationRequest> shown_;
};
}  // namespace orvane::test
