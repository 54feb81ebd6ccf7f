#pragma once

#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

#include "services/scenario/chain_transaction.h"

namespace orvane::services {

/// The explorer's documents; amounts in satoshis.
[[nodiscard]] nlohmann::json addressDocument(const std::string& address,
                                             const AddressTotals& confirmed,
                                             const AddressTotals& unconfirmed);
[[nodiscard]] nlohmann::json transactionsDocument(const std::vector<ChainTransaction>& list);

}  // namespace orvane::services
