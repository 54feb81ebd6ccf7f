#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>
#include "platform/json/json_reader.h"

namespace orvane {
/// The answers of the pool's account API, with the members that are read of them. Hash rates are
/// in the unit that stands beside them; times are seconds since 1970-01-01T00:00:00 UTC.

/// The account as a whole.
struct BraiinsProfileResponse {
  struct Profile {
    std::string hashRateUnit;
    double hashRate60m = 0;
    double shares24h = 0;
    std::string todayReward;     ///< BTC, decimal text
    std::string currentBalance;  ///< BTC, decimal text
  };
  Profile btc;
};

/// The account's machines; what a machine does not report is nothing.
struct BraiinsWorkersResponse {
  struct Worker {
    std::optional<std::string> state;
    std::optional<std::int64_t> lastShare;
    std::optional<std::string> hashRateUnit;
    std::optional<double> hashRate5m;
    std::optional<double> hashRate60m;
    std::optional<double> hashRate24h;
  };
  struct BTC {
    NamedRecords<Worker> workers;  ///< by full name
  };
  NamedRecords<BTC> values;  ///< by currency, in practice "btc"
};

/// What each day has earned.
struct BraiinsRewardsResponse {
  struct Reward {
    std::int64_t date = 0;
    std::string totalReward;  ///< BTC, decimal text
  };
  struct BTC {
    std::vector<Reward> dailyRewards;
  };
  BTC btc;
};

/// How fast the account was on each day.
struct BraiinsDailyHashrateResponse {
  struct Day {
    std::int64_t date = 0;
    std::string hashRateUnit;
    double hashRate24h = 0;
    double totalShares = 0;
  };
  NamedRecords<std::vector<Day>> values;  ///< by group, in practice "btc"
};

/// The entry that an account in bitcoin is read from: "btc", else the first by name, else the
/// empty value.
template <class Record>
[[nodiscard]] Record currencyEntry(NamedRecords<Record> values) {
  auto entry = findRecord(values, "btc");
  if (entry == values.end()) { entry = values.begin(); }
  return entry == values.end() ? Record{} : std::move(entry->second);
}

/// Decoders of the pool's answers. Each gives nothing when any part of the body does not match its
/// document, and never a part of one: a body that is no JSON, a member of another type, a required
/// member that is missing or null. Members that no record names are ignored; an optional member
/// that is null counts as missing.

[[nodiscard]] std::optional<BraiinsProfileResponse> decodeProfile(std::string_view body);
/// Every currency of the document must match, not only the one that is used. The name of a worker
/// has at most 1,000 characters, and at most 30 combining marks in a row.
[[nodiscard]] std::optional<BraiinsWorkersResponse> decodeWorkers(std::string_view body);
[[nodiscard]] std::optional<BraiinsRewardsResponse> decodeRewards(std::string_view body);
/// Every group of the document must match, not only the one that is used.
[[nodiscard]] std::optional<BraiinsDailyHashrateResponse> decodeDailyHashrate(
    std::string_view body);

/// How the pool writes its figures, in these documents and in requests for them.

/// The calendar day in UTC, "2026-11-15"; a moment beyond the years of four digits becomes their
/// nearest end.
[[nodiscard]] std::string utcDateText(std::chrono::sys_seconds moment);

/// Hashes per second in one `unit`, for example 1e9 for "Gh/s"; up to petahashes, with letters in
/// either case, and with or without the slash. White space around the unit does not count. Any
/// other text is factor 1: the number stays as it is.
[[nodiscard]] double hashRateUnitFactor(std::string_view unit);

/// The amount of a decimal text in BTC ("0.00012345"), in satoshis; 0 when the text is not a number
/// as a whole. A fraction of a satoshi is rounded to the nearest, halves away from zero; amounts
/// beyond the 64-bit range become its ends.
[[nodiscard]] std::int64_t satsFromBTCText(std::string_view text);

/// Shares from the pool's share figure, which counts in 1,024ths: to the nearest, halves away from
/// zero; figures beyond the 64-bit range become its ends.
[[nodiscard]] std::int64_t sharesFromPoolFigure(double figure);
}  // namespace orvane
