#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace orvane {

/// Stands for something that lasts as long as this object: a subscription, a key monitor. It may
/// outlive what it is registered with.
class Registration {
 public:
  Registration() = default;
  explicit Registration(std::shared_ptr<const void> registered)
      : registered_(std::move(registered)) {}

  [[nodiscard]] explicit operator bool() const { return registered_ != nullptr; }

 private:
  std::shared_ptr<const void> registered_;
};

/// Tells any number of listeners, in the order of their subscriptions. Main thread only. A
/// listener may subscribe or unsubscribe, itself or others, while it is being told.
template <class... Values>
class Signal {
 public:
  using Listener = std::function<void(Values...)>;

  [[nodiscard]] Registration subscribe(Listener listener) {
    auto shared = std::make_shared<const Listener>(std::move(listener));
    std::erase_if(listeners_, [](const auto& known) { return known.expired(); });
    listeners_.push_back(shared);
    return Registration(std::move(shared));
  }

  void send(const Values&... values) const {
    const auto told = listeners_;
    for (const auto& known : told) {
      if (const auto listener = known.lock()) { (*listener)(values...); }
    }
  }

 private:
  std::vector<std::weak_ptr<const Listener>> listeners_;
};

}  // namespace orvane
