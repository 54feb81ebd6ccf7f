#include "core/balance_state.h"

namespace orvane {

Announcer::Subscription Announcer::subscribe(Listener listener) {
  auto kept = std::make_shared<Listener>(std::move(listener));
  listeners_.push_back(kept);
  return Subscription(std::move(kept));
}

void Announcer::announce() {
  std::erase_if(listeners_, [](const auto& listener) { return listener.expired(); });
  // A listener may change the list while it is being walked.
  const auto told = listeners_;
  for (const auto& listener : told) {
    if (const auto alive = listener.lock()) { (*alive)(); }
  }
}

}  // namespace orvane
