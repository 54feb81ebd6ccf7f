#pragma once

#include <functional>
#include <type_traits>
#include <utility>

#include "core/announcer.h"
#include "core/balance_state.h"

namespace orvane {

/// The store's state as its parts write it: every assignment goes through here and announces
/// itself to the views.
class BalanceFields {
 public:
  /// `onChange` tells the menu bar; see BalanceStore::onChange.
  explicit BalanceFields(std::function<void()> onChange) : onChange_(std::move(onChange)) {}

  [[nodiscard]] const BalanceState& state() const { return state_; }
  const BalanceState* operator->() const { return &state_; }

  template <class Value>
  void set(Value BalanceState::* field, std::type_identity_t<Value> value) {
    state_.*field = std::move(value);
    views_.announce();
  }

  void invokeOnChange() const { onChange_(); }
  [[nodiscard]] Announcer::Subscription observe(Announcer::Listener listener) {
    return views_.subscribe(std::move(listener));
  }

 private:
  BalanceState state_;
  Announcer views_;
  std::function<void()> onChange_;
};

}  // namespace orvane
