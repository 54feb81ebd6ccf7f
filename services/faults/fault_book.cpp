#include "services/faults/fault_book.h"

#include <algorithm>
#include <utility>

namespace orvane::services {

void FaultBook::add(Fault fault) {
  const std::lock_guard lock(mutex_);
  faults_.push_back(std::move(fault));
}

void FaultBook::clear() {
  const std::lock_guard lock(mutex_);
  faults_.clear();
}

std::optional<Fault> FaultBook::take(Service service, std::string_view target) {
  const std::lock_guard lock(mutex_);
  const auto found = std::ranges::find_if(faults_, [&](const Fault& fault) {
    return fault.service == service && target.contains(fault.path) && fault.count != 0;
  });
  if (found == faults_.end()) { return std::nullopt; }
  if (found->count) { --*found->count; }
  return *found;
}

}  // namespace orvane::services
