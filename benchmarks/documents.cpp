#include "documents.h"
#include <array>
#include <cstdint>
#include <iterator>
#include <random>
#include <fmt/format.h>

namespace orvane::bench {
namespace {
constexpr std::int64_t newestDay = 1'763'164'800;  // 2025-11-15T00:00:00 UTC
constexpr std::int64_t secondsADay = 86'400;
constexpr std::uint32_t seed = 2026;

/// A number from 0 to below `limit`. The standard's distributions differ between libraries.
std::uint32_t below(std::mt19937& random, std::uint32_t limit) {
  return static_cast<std::uint32_t>(random() % limit);
}

std::string hexId(std::mt19937& random) {
  std::string id;
  for (int part = 0; part < 8; ++part) {
    fmt::format_to(std::back_inserter(id), "{:08x}", static_cast<std::uint32_t>(random()));
  }
  return id;
}

/// `count` records, written by `write(to, index)`, with commas between them.
template <class Write>
void writeList(std::string& to, std::size_t count, Write write) {
  for (std::size_t index = 0; index < count; ++index) {
    if (index != 0) { to += ','; }
    write(std::back_inserter(to), index);
  }
}
}  // namespace

std::string workersDocument(std::size_t workers) {
  constexpr std::array states{"ok", "ok", "ok", "ok", "low", "off", "dis", "unknown"};
  std::mt19937 random(seed);
  std::string text = R"({"btc":{"workers":{)";
  writeList(text, workers, [&](auto to, std::size_t index) {
    const std::uint32_t rate = 90'000 + below(random, 20'000);
    fmt::format_to(to,
                   R"("pellam.rig{:05}":{{"state":"{}","last_share":{},"hash_rate_unit":"Gh/s",)"
                   R"("hash_rate_scoring":{}.{:02},"hash_rate_5m":{}.{:02},"hash_rate_60m":{},)"
                   R"("hash_rate_24h":{}.5,"shares_5m":{},"shares_60m":{},"shares_24h":{}}})",
                   index, states[below(random, states.size())], newestDay + index, rate,
                   below(random, 100), rate + below(random, 500), below(random, 100), rate + 40,
                   rate + 17, rate / 2, rate * 6, rate * 144);
  });
  return text + "}}}";
}

std::string profileDocument() {
  return R"({"username":"pellam","btc":{"confirmed_reward":"0.00123456","unconfirmed_reward":)"
         R"("0.00000412","estimated_reward":"0.00004000","hash_rate_unit":"Gh/s",)"
         R"("hash_rate_5m":95100.5,"hash_rate_60m":95010,"hash_rate_24h":94870.25,)"
         R"("low_workers":1,"off_workers":1,"ok_workers":7,"dis_workers":0,"shares_5m":412,)"
         R"("shares_60m":5032,"shares_24h":1912044812,"today_reward":"0.00004127",)"
         R"("current_balance":"0.00128203"}})";
}

std::string rewardsDocument(std::size_t days) {
  std::mt19937 random(seed);
  std::string text = R"({"btc":{"daily_rewards":[)";
  writeList(text, days, [&](auto to, std::size_t day) {
    const std::uint32_t sats = 10'000 + below(random, 5'000);
    fmt::format_to(to,
                   R"({{"date":{},"total_reward":"0.{:08}","mining_reward":"0.{:08}",)"
                   R"("bos_plus_reward":"0.00000000","referral_bonus":"0.00000000",)"
                   R"("referral_reward":"0.00000000"}})",
                   newestDay - static_cast<std::int64_t>(day) * secondsADay, sats, sats);
  });
  return text + "]}}";
}

std::string dailyHashrateDocument(std::size_t days) {
  std::mt19937 random(seed);
  std::string text = R"({"btc":[)";
  writeList(text, days, [&](auto to, std::size_t day) {
    const std::uint32_t rate = 90'000 + below(random, 20'000);
    fmt::format_to(
        to, R"({{"date":{},"hash_rate_unit":"Gh/s","hash_rate_24h":{}.{:03},"total_shares":{}}})",
        newestDay - static_cast<std::int64_t>(day) * secondsADay, rate, below(random, 1000),
        std::uint64_t{rate} * 20'000);
  });
  return text + "]}";
}

std::string transactionsDocument(std::size_t transactions, std::size_t outputsEach,
                                 std::string_view address) {
  std::mt19937 random(seed);
  std::string text = "[";
  writeList(text, transactions, [&](auto to, std::size_t index) {
    fmt::format_to(to,
                   R"({{"txid":"{}","version":2,"locktime":0,"vin":[{{"txid":"{}","vout":0,)"
                   R"("scriptsig":"","is_coinbase":{},"sequence":4294967295}}],"vout":[)",
                   hexId(random), hexId(random), index % 10 == 0);
    writeList(text, outputsEach, [&](auto inner, std::size_t output) {
      const bool pays = output + 1 == outputsEach;
      fmt::format_to(inner,
                     R"({{"scriptpubkey":"0014{}","scriptpubkey_type":"v0_p2wpkh",)"
                     R"("scriptpubkey_address":"{}","value":{}}})",
                     hexId(random).substr(0, 40),
                     pays ? std::string(address) : "bc1q" + hexId(random).substr(0, 38),
                     1'000 + below(random, 100'000'000));
    });
    fmt::format_to(to,
                   R"(],"size":222,"weight":561,"fee":1410,"status":{{"confirmed":{},)"
                   R"("block_height":{},"block_hash":"{}","block_time":{}}}}})",
                   index >= 2, 920'000 - index, hexId(random), newestDay - 600 * index);
  });
  return text + "]";
}
}  // namespace orvane::bench
