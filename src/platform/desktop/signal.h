#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/desktop/registration.h"

namespace orvane {

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
