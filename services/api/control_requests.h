#pragma once

#include <cstdint>
#include <expected>
#include <string>
#include <string_view>

#include "services/faults/fault.h"
#include "services/scenario/scenario_clock.h"

namespace orvane::services {

/// What the bodies of control requests ask for, or a sentence that says what is wrong with them.
template <typename T>
using Understood = std::expected<T, std::string>;

struct PayRequest {
  std::int64_t sats = 0;
  bool isCoinbase = false;
  std::string address;  ///< empty: the sample address
};

[[nodiscard]] Understood<Fault> faultRequest(std::string_view body);
[[nodiscard]] Understood<ScenarioSeconds> advanceRequest(std::string_view body);
[[nodiscard]] Understood<PayRequest> payRequest(std::string_view body);

}  // namespace orvane::services
