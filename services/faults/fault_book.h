#pragma once

#include <mutex>
#include <optional>
#include <string_view>
#include <vector>

#include "services/faults/fault.h"

namespace orvane::services {

/// The faults in force. Safe to use from any thread.
class FaultBook {
 public:
  void add(Fault fault);
  void clear();

  /// The fault that hits this request, the oldest of several, counted off; none: answer rightly.
  [[nodiscard]] std::optional<Fault> take(Service service, std::string_view target);

 private:
  std::mutex mutex_;
  std::vector<Fault> faults_;
};

}  // namespace orvane::services
