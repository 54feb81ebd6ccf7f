#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "platform/async/signal.h"

namespace orvane {

/// Lets parts of the program that do not know each other talk: whoever observes a name hears every
/// post of it, with its object, before `post` returns.
class BroadcastCenter {
 public:
  using Object = std::optional<std::string>;
  using Listener = std::function<void(const Object& object)>;

  [[nodiscard]] Registration observe(const std::string& name, Listener listener);
  void post(const std::string& name, const Object& object = std::nullopt) const;

 private:
  std::map<std::string, Signal<Object>> names_;
};

}  // namespace orvane
