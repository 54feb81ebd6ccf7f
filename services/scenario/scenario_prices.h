#pragma once

#include "services/scenario/scenario_clock.h"

namespace orvane::services {

/// What one bitcoin costs.
struct ScenarioPrices {
  double eur = 0;
  double usd = 0;
};

/// Prices that drift by a few percent within hours and by cents within minutes.
[[nodiscard]] ScenarioPrices pricesAt(const Moment& moment);

}  // namespace orvane::services
