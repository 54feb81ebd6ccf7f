#pragma once

#include <vector>

#include <nlohmann/json_fwd.hpp>

#include "services/scenario/scenario_pool.h"

namespace orvane::services {

/// The pool's documents. Amounts are texts of bitcoin with eight decimals; share figures are
/// 1024 times the shares of difficulty one, as the pool counts them.
[[nodiscard]] nlohmann::json profileDocument(const PoolAccount& account);
[[nodiscard]] nlohmann::json workersDocument(const std::vector<PoolWorker>& workers);
[[nodiscard]] nlohmann::json rewardsDocument(const std::vector<PoolDay>& days);
[[nodiscard]] nlohmann::json dailyHashRateDocument(const std::vector<PoolDay>& days);

}  // namespace orvane::services
