#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include "pool/pool_documents.h"

namespace orvane {
/// The account figures of the pool. Hash rates are hashes per second, amounts satoshis.
struct BraiinsAccountStats {
  double hashRate60m = 0;
  std::int64_t shares24h = 0;
  std::int64_t todayRewardSats = 0;
  std::int64_t balanceSats = 0;

  bool operator==(const BraiinsAccountStats&) const = default;
};

/// One worker as the pool sees it. Hash rates are hashes per second.
struct BraiinsWorkerStatus {
  enum class State { ok, low, off, disabled, unknown };

  std::string fullName;  ///< the Stratum login, for example pellam.mac
  State state = State::unknown;
  double hashRate5m = 0;
  double hashRate60m = 0;
  double hashRate24h = 0;
  std::optional<std::chrono::sys_seconds> lastShare = {};

  bool operator==(const BraiinsWorkerStatus&) const = default;
};

/// The part of a Stratum login after its first "."; the whole when there is no such part.
[[nodiscard]] std::string_view shortWorkerName(std::string_view fullName);

/// From the pool's documents to the records that the program shows. Nothing here can fail: unknown
/// units and states, amounts that are no numbers and missing figures have their defaults.

[[nodiscard]] BraiinsAccountStats accountStats(const BraiinsProfileResponse& response);

/// Every worker of the document's `currencyEntry`, in `workerOrder`.
[[nodiscard]] std::vector<BraiinsWorkerStatus> workerStatuses(BraiinsWorkersResponse response);

/// The order of display: the fastest of the last five minutes first; among equals by name, in the
/// order of code points after canonical normalization. Rates must not be NaN.
[[nodiscard]] std::vector<BraiinsWorkerStatus> workerOrder(
    std::vector<BraiinsWorkerStatus> workers);
}  // namespace orvane
