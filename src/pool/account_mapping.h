#pragma once

#include <vector>

#include "pool/account_records.h"
#include "pool/pool_documents.h"

/// From the pool's documents to the records that the program shows. Nothing here can fail: unknown
/// units and states, amounts that are no numbers and missing figures have their defaults.
namespace orvane {

[[nodiscard]] BraiinsAccountStats accountStats(const BraiinsProfileResponse& response);

/// Every worker of the document's `currencyEntry`, in `workerOrder`.
[[nodiscard]] std::vector<BraiinsWorkerStatus> workerStatuses(BraiinsWorkersResponse response);

/// The order of display: the fastest of the last five minutes first; among equals by name, in the
/// order of code points after canonical normalization. Rates must not be NaN.
[[nodiscard]] std::vector<BraiinsWorkerStatus> workerOrder(
    std::vector<BraiinsWorkerStatus> workers);

}  // namespace orvane
