#include "address/address_summary.h"

#include <cstdint>

#include <gmock/gmock.h>

#include "support/document_members.h"

namespace orvane::test {
namespace {

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

WatchedAddressTransaction incoming(const Transaction& paying) {
  return incomingTransaction(paying, address).value().value();
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
  const WatchedAddressTransaction listedLast{.txid = "last", .sats = 4000};
  EXPECT_EQ(summary->tipHeight, 7);
  EXPECT_THAT(summary->incoming,
              ElementsAre(listedLast, WatchedAddressTransaction{.txid = "first", .sats = 3500},
                          listedLast));
}

TEST(AddressSummaryTest, OnlyTheFirstInputMakesABlockReward) {
  const std::pair<std::vector<Transaction::Input>, bool> cases[]{
      {{}, false}, {{{true}, {false}}, true}, {{{false}, {true}}, false}};
  for (const auto& [inputs, isCoinbase] : cases) {
    Transaction paying = transaction({1});
    paying.vin = inputs;
    EXPECT_EQ(incoming(paying).isCoinbase, isCoinbase) << inputs.size();
  }
}

TEST(AddressSummaryTest, OnlyAConfirmedTransactionHasAHeight) {
  Transaction paying = transaction({1});
  paying.status = {.confirmed = true, .block_height = 7};
  EXPECT_EQ(incoming(paying).blockHeight, 7);
  paying.status.confirmed = false;
  EXPECT_EQ(incoming(paying).blockHeight, std::nullopt);
}

TEST(AddressSummaryTest, AmountsThatLeaveTheRangeAreAMalformedAnswer) {
  struct Case {
    std::vector<std::int64_t> values;
    std::optional<std::int64_t> sats;  ///< nothing: malformed; 0: it paid nothing
  };
  const Case sums[]{{{most}, most},        {{most, 1}, {}}, {{most, most, least}, most - 1},
                    {{most, 1, -1}, most}, {{-5}, 0},       {{least}, 0},
                    {{least, -1}, {}}};
  for (const Case& test : sums) {
    const auto paid = incomingTransaction(transaction(test.values), address);
    ASSERT_EQ(paid.has_value(), test.sats.has_value()) << testing::PrintToString(test.values);
    if (paid) { EXPECT_EQ(*paid ? (*paid)->sats : 0, test.sats); }
  }
  const auto summary = [](AddressStats::Stats chain, AddressStats::Stats mempool,
                          std::vector<std::int64_t> paid) {
    return buildSummary({.chain_stats = chain, .mempool_stats = mempool}, {transaction(paid)}, 0,
                        address);
  };
  EXPECT_EQ(summary({most, -1}, {1, 1}, {}), std::unexpected(outOfRange));
  EXPECT_EQ(summary({1, 1}, {least, 1}, {}), std::unexpected(outOfRange));
  EXPECT_EQ(summary({1, 1}, {1, 1}, {most, most}), std::unexpected(outOfRange));
  EXPECT_EQ(summary({least, least}, {-1, most}, {})->pendingSats, least);
}

TEST(AddressSummaryTest, CountsConfirmations) {
  struct Case {
    std::int64_t tip;
    std::optional<std::int64_t> block;
    std::int64_t count;
  };
  const Case cases[]{{850000, 850000, 1}, {850099, 850000, coinbaseMaturity},
                     {850000, {}, 0},     {849999, 850000, 0},
                     {least, most, 0},    {most, least, most},
                     {most, 0, most},     {most, 2, most - 1},
                     {0, -1, 2}};
  for (const Case& test : cases) {
    EXPECT_EQ(confirmations(test.tip, test.block), test.count)
        << test.tip << ", " << test.block.value_or(0);
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

TEST(ExplorerDocumentsTest, ReadsEachMemberIntoItsPlace) {
  const auto list =
      decodeTransactions(R"([{"txid":"a","vin":[{"is_coinbase":false},{"is_coinbase":true}],)"
                         R"("vout":[{"scriptpubkey_address":"x","value":5},{"value":7}],)"
                         R"("status":{"confirmed":true,"block_height":850000}}])");
  const Transaction& only = list.value().at(0);
  EXPECT_EQ(only.txid, "a");
  EXPECT_FALSE(only.vin.at(0).is_coinbase);
  EXPECT_TRUE(only.vin.at(1).is_coinbase);
  EXPECT_EQ(only.vout.at(0).scriptpubkey_address, "x");
  EXPECT_EQ(only.vout.at(1).value, 7);
  EXPECT_EQ(only.status.block_height, 850000);
}

TEST(ExplorerDocumentsTest, ParseTheTipHeight) {
  const std::pair<std::string, std::optional<std::int64_t>> cases[]{
      {"850000\n", 850000},
      {"\u00a0\u2028 850000\t\r\n\u0085", 850000},
      {"+850000", 850000},
      {"-1", -1},
      {"0000000000000000000000000850000", 850000},
      {"9223372036854775807", most},
      {"-9223372036854775808", least},
      {"9223372036854775808", {}},
      {"", {}},
      {"+", {}},
      {"+-5", {}},
      {"-+5", {}},
      {"- 5", {}},
      {"850,000", {}},
      {"850000.0", {}},
      {"0x10", {}},
      {"٨٥", {}},
      {"850000\ufffd", {}},
      {std::string("850000\0", 7), {}},
  };
  for (const auto& [text, height] : cases) {
    EXPECT_EQ(parseTipHeight(text), height) << text;
  }
}

}  // namespace
}  // namespace orvane::test
