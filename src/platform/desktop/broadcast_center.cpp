#include "platform/desktop/broadcast_center.h"

#include <utility>

namespace orvane {

Registration BroadcastCenter::observe(const std::string& name, Listener listener) {
  return names_[name].subscribe(std::move(listener));
}

void BroadcastCenter::post(const std::string& name, const Object& object) const {
  if (const auto known = names_.find(name); known != names_.end()) { known->second.send(object); }
}

}  // namespace orvane
