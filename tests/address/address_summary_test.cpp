#include "address/address_summary.h"
#include <gmock/gmock.h>
#include "support/document_members.h"

namespace orvane::test { namespace {

using testing::ElementsAre;

constexpr std::int64_t most = INT64_MAX;
constexpr std::int64_t least = INT64_MIN;
const std::string address = "bc1qar0srrr7xfkvy5l643lydnw9re59gtzzwf5mdq";
const ExplorerError outOfRange{.kind = ExplorerError::Kind::decoding};

Transaction transaction(const std::vector<std::int64_t>& values, const std::string& txid = "t") {
  Transaction result{.txid = txid, .vin = {{.is_coinbase = false}}, .vout = {}, .status = {}};
  for (const std::int64_t value : values) {
    result.vout.push_back({.scriptpubkey_address = address, .value = value});
  }
  return result;
}

TEST(AddressSummaryTest, ListsWhatPaidTheAddressAsOftenAndInTheOrderOfTheExplorer) {
  Transaction elsewhere = transaction({});
  elsewhere.vout = {
      {.scriptpubkey_address = "BC1QAR0SRRR7XFKVY5L643LYDNW9RE59GTZZWF5MDQ", .value = 1},
      {.scriptpubkey_address = std::nullopt, .value = 1}};
  const Transaction first = transaction({1000, 2500}, "first");
  const Transaction last = transaction({4000}, "last");
  const auto summary =
      buildSummary({}, {last, elsewhere, transaction({0}), first, last}, 7, address);
  const WatchedAddressTransaction listedFirst{.txid = "first", .sats = 3500};
  const WatchedAddressTransaction listedLast{.txid = "last", .sats = 4000};
  EXPECT_THAT(summary->incoming, ElementsAre(listedLast, listedFirst, listedLast));
}

TEST(AddressSummaryTest, ABlockRewardIsToldByItsFirstInputAndAHeightByItsStatus) {
  using Inputs = std::vector<Transaction::Input>;
  const std::tuple<Inputs, bool, bool> cases[]{
      {{}, true, false}, {{{true}, {false}}, true, true}, {{{false}, {true}}, false, false}};
  for (const auto& [inputs, isConfirmed, isCoinbase] : cases) {
    Transaction paying = transaction({1});
    paying.vin = inputs;
    paying.status = {.confirmed = isConfirmed, .block_height = 7};
    const auto incoming = incomingTransaction(paying, address).value().value();
    EXPECT_EQ(incoming.isCoinbase, isCoinbase) << inputs.size();
    EXPECT_EQ(incoming.blockHeight, isConfirmed ? std::optional(7) : std::nullopt);
  }
}

TEST(AddressSummaryTest, AmountsThatLeaveTheRangeAreAMalformedAnswer) {
  const std::optional<std::int64_t> none;
  using Paid = std::vector<std::int64_t>;
  const std::pair<Paid, std::optional<std::int64_t>> sums[]{
      {{most, 1}, none},     {{most, most, least}, most - 1},
      {{most, 1, -1}, most}, {{-5}, 0},
      {{least}, 0},          {{least, -1}, none}};
  for (const auto& [paid, sats] : sums) {  // 0: it is not listed
    const auto summary = buildSummary({}, {transaction(paid)}, 0, address);
    ASSERT_EQ(summary.has_value(), sats.has_value()) << testing::PrintToString(paid);
    if (!summary) { EXPECT_EQ(summary.error(), outOfRange); }
    if (summary) { EXPECT_EQ(summary->incoming.empty() ? 0 : summary->incoming[0].sats, sats); }
  }
  const auto summary = [](AddressStats::Stats chain, AddressStats::Stats mempool) {
    return buildSummary({.chain_stats = chain, .mempool_stats = mempool}, {}, 0, address);
  };
  EXPECT_EQ(summary({most, -1}, {1, 1}), std::unexpected(outOfRange));
  EXPECT_EQ(summary({1, 1}, {least, 1}), std::unexpected(outOfRange));
  EXPECT_EQ(summary({least, least}, {-1, most})->pendingSats, least);
}

TEST(AddressSummaryTest, CountsConfirmations) {
  const std::tuple<std::int64_t, std::optional<std::int64_t>, std::int64_t> cases[]{
      {850000, 850000, 1}, {850099, 850000, coinbaseMaturity},
      {850000, {}, 0},     {849999, 850000, 0},
      {least, most, 0},    {most, least, most},
      {most, 0, most}};
  for (const auto& [tip, block, count] : cases) {
    EXPECT_EQ(confirmations(tip, block), count) << tip << ", " << block.value_or(0);
  }
}

TEST(ExplorerDocumentsTest, MatchAsAWhole) {
  using enum MemberType;
  expectMembers(decodeAddressStats,
                R"({"chain_stats":{"funded_txo_sum":150000,"spent_txo_sum":50000},)"
                R"("mempool_stats":{"funded_txo_sum":0,"spent_txo_sum":20000}})",
                {{"funded_txo_sum", "150000", integer},
                 {"spent_txo_sum", "50000", integer},
                 {"mempool_stats", R"({"funded_txo_sum":0,"spent_txo_sum":20000})", object}});
  expectMembers(decodeTransactions,
                R"([{"txid":"a","fee":3,"vin":[{"is_coinbase":true}],"vout":[],"status":)"
                R"({"confirmed":true,"block_height":850000}},{"txid":"b","vin":[],"vout":)"
                R"([{"scriptpubkey_address":"x","value":5}],"status":{"confirmed":false}}])",
                {{"txid", R"("a")", text},
                 {"vin", "[]", array},
                 {"is_coinbase", "true", boolean},
                 {"vout", "[]", array},
                 {"scriptpubkey_address", R"("x")", optionalText},
                 {"value", "5", integer},
                 {"status", R"({"confirmed":false})", object},
                 {"confirmed", "false", boolean},
                 {"block_height", "850000", optionalInteger}});
  EXPECT_FALSE(decodeTransactions("{}"));
}

TEST(ExplorerDocumentsTest, ParseTheTipHeight) {
  using namespace std::string_literals;
  const std::pair<std::string, std::int64_t> heights[]{{"\u00a0\u2028 850000\t\r\n\u0085", 850000},
                                                       {"+850000", 850000},
                                                       {"-1", -1},
                                                       {"0000000000000000000000000850000", 850000},
                                                       {"9223372036854775807", most},
                                                       {"-9223372036854775808", least}};
  for (const auto& [text, height] : heights) {
    EXPECT_EQ(parseTipHeight(text), height) << text;
  }
  for (const std::string& text :
       {"9223372036854775808"s, ""s, "+"s, "+-5"s, "-+5"s, "- 5"s, "850,000"s, "850000.0"s, "0x10"s,
        "٨٥"s, "850000\ufffd"s, "850000\0"s}) {
    EXPECT_EQ(parseTipHeight(text), std::nullopt) << text;
  }
}

}}  // namespace orvane::test
