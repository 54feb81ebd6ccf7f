#pragma once

#include "platform/network/network_watch.h"

namespace orvane::test {
/// A network that comes when a test says so.
class FakeNetworkWatch final : public NetworkWatch {
 public:
  [[nodiscard]] Registration onReachable(std::function<void()> listener) override {
    return reachable_.subscribe(std::move(listener));
  }
  void come() const { reachable_.send(); }

 private:
  Signal<> reachable_;
};
}  // namespace orvane::test
