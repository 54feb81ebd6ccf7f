#pragma once

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/async/timer.h"
#include "platform/notifications/notification_center.h"

namespace orvane::test {

/// A notification service whose screen is a list.
class FakeNotificationCenter final : public NotificationCenter {
 public:
  bool grantsAuthorization = true;
  /// The identifiers that `add` does not take.
  std::set<std::string> refused;
  /// How long each of its answers takes.
  ExecutorClock::duration delay{};

  /// How often it was asked for authorization.
  [[nodiscard]] int authorizationRequests() const { return authorizationRequests_; }
  /// Every request that it was given, refused ones among them, in the order of arrival.
  [[nodiscard]] const std::vector<NotificationRequest>& received() const { return received_; }
  /// What the user sees: one notification for each identifier.
  [[nodiscard]] const std::vector<NotificationRequest>& shown() const { return shown_; }

  [[nodiscard]] Task<bool> requestAuthorization() override {
    ++authorizationRequests_;
    const bool answered = co_await answerAfterDelay();
    co_return answered ? grantsAuthorization : false;
  }

  [[nodiscard]] Task<bool> add(NotificationRequest request) override {
    received_.push_back(request);
    const bool answered = co_await answerAfterDelay();
    if (!answered || refused.contains(request.identifier)) { co_return false; }
    const auto replaced =
        std::ranges::find(shown_, request.identifier, &NotificationRequest::identifier);
    if (replaced == shown_.end()) {
      shown_.push_back(std::move(request));
    } else {
      *replaced = std::move(request);
    }
    co_return true;
  }

 private:
  /// False when the task that asked was cancelled meanwhile.
  [[nodiscard]] Task<bool> answerAfterDelay() const {
    const SleepEnd end = co_await sleepFor(delay);
    co_return end == SleepEnd::elapsed;
  }

  int authorizationRequests_ = 0;
  std::vector<NotificationRequest> received_;
  std::vector<NotificationRequest> shown_;
};

}  // namespace orvane::test
