#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
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

/// The functions that are registered now, in the order of their registration. Main thread only. A
/// function may register or unregister, itself or others, while it is being called.
template <class Function>
class Listeners {
 public:
  [[nodiscard]] Registration add(Function function) {
    auto shared = std::make_shared<const Function>(std::move(function));
    std::erase_if(listeners_, [](const auto& known) { return known.expired(); });
    listeners_.push_back(shared);
    return Registration(std::move(shared));
  }

  /// Hands one listener after the other to `call` until it returns true; whether it did.
  template <class Call>
  bool untilTrue(Call call) const {
    const auto asked = listeners_;
    for (const auto& known : asked) {
      if (const auto listener = known.lock(); listener && call(*listener)) { return true; }
    }
    return false;
  }

 private:
  std::vector<std::weak_ptr<const Function>> listeners_;
};

/// Tells any number of listeners, in the order of their subscriptions. Main thread only. A
/// listener may subscribe or unsubscribe, itself or others, while it is being told.
template <class... Values>
class Signal {
 public:
  using Listener = std::function<void(Values...)>;

  [[nodiscard]] Registration subscribe(Listener listener) {
    return listeners_.add(std::move(listener));
  }

  void send(const Values&... values) const {
    listeners_.untilTrue([&](const Listener& listener) {
      listener(values...);
      return false;
    });
  }

 private:
  Listeners<Listener> listeners_;
};

/// Lets parts of the program that do not know each other talk: whoever observes a name hears every
/// post of it, with its object, before `post` returns.
class BroadcastCenter {
 public:
  using Object = std::optional<std::string>;
  using Listener = std::function<void(const Object& object)>;

  [[nodiscard]] Registration observe(const std::string& name, Listener listener) {
    return names_[name].subscribe(std::move(listener));
  }

  void post(const std::string& name, const Object& object = std::nullopt) const {
    if (const auto known = names_.find(name); known != names_.end()) { known->second.send(object); }
  }

 private:
  std::map<std::string, Signal<Object>> names_;
};
}  // namespace orvane
