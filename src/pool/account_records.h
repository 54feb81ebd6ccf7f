#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

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

}  // namespace orvane
