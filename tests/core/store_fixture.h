#pragma once

#include <gmock/gmock.h>
#include "support/store_on_fakes.h"

namespace orvane::test {
using namespace std::chrono_literals;

/// A store on fakes, and what a story about it asks again and again.
class StoreTest : public testing::Test, public StoreOnFakes {
 protected:
  /// Starts it and lets the first things happen, in no time.
  void startAndSettle() {
    start();
    executor.runUntilIdle();
  }
  /// Starts it with the stored token "first" and lets the first 100 seconds pass, and with them
  /// the first pool cycle; the second begins after 360 seconds.
  void startWithFigures() {
    storeToken("first");
    start();
    executor.advance(100s);
    takeChanges();
  }

  /// How often onChange was invoked since the last call.
  int takeChanges() { return std::exchange(changes, 0); }
  /// What onChange found, each time it was invoked during `story`.
  [[nodiscard]] std::vector<BalanceState> heardDuring(const std::function<void()>& story) {
    std::vector<BalanceState> heard;
    store->onChange = [&] { heard.push_back(state()); };
    story();
    store->onChange = nullptr;
    return heard;
  }
  /// What `flag` was, one after the other, at the announcements during `story`.
  [[nodiscard]] std::vector<bool> valuesDuring(bool BalanceState::* flag,
                                               const std::function<void()>& story) {
    std::vector<bool> values;
    const auto subscription = store->observe([&] {
      if (values.empty() || values.back() != state().*flag) { values.push_back(state().*flag); }
    });
    story();
    return values;
  }
};
}  // namespace orvane::test
