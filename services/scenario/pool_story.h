#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>
#include "services/scenario/moment.h"

namespace orvane::services {
/// One worker as the pool knows it; rates in hashes per second.
struct PoolWorker {
  std::string name;
  std::string state;
  std::string unit;  ///< that its rates are reported in; empty: the pool reports nothing at all
  double rate5m = 0;
  double rate60m = 0;
  double rate24h = 0;
  std::optional<std::chrono::sys_seconds> lastShare;
};

struct PoolAccount {
  double rate60m = 0;  ///< hashes per second
  double shares24h = 0;
  std::int64_t todayRewardSats = 0;
  std::int64_t balanceSats = 0;
};

struct PoolDay {
  std::chrono::sys_days date;
  std::optional<std::int64_t> rewardSats;
  std::optional<double> rate;  ///< hashes per second
  double shares = 0;           ///< only where there is a rate
};

/// The account of a small miner: workers in every state, of which one slows down, drops out and
/// comes back within half an hour, each for long enough to be noticed, a reward that grows through
/// the day, a balance that grows with it, and a year of days, some of them with gaps. All of it is
/// a function of the moment.
[[nodiscard]] std::vector<PoolWorker> workersAt(const Moment& moment);
[[nodiscard]] PoolAccount accountAt(const Moment& moment);
/// The full days before the moment, oldest first.
[[nodiscard]] std::vector<PoolDay> daysBefore(const Moment& moment);
}  // namespace orvane::services
