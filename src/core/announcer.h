#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace orvane {

/// Tells any number of listeners that something changed. Main thread only. A listener may
/// subscribe or unsubscribe while it is being told.
class Announcer {
 public:
  using Listener = std::function<void()>;

  /// Listening ends when it is destroyed; it may outlive the announcer.
  class Subscription {
   public:
    Subscription() = default;

   private:
    friend class Announcer;
    explicit Subscription(std::shared_ptr<Listener> listener) : listener_(std::move(listener)) {}
    std::shared_ptr<Listener> listener_;
  };

  [[nodiscard]] Subscription subscribe(Listener listener);
  void announce();

 private:
  std::vector<std::weak_ptr<Listener>> listeners_;
};

}  // namespace orvane
