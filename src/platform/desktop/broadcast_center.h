#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "platform/async/signal.h"

namespace orvane {

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
