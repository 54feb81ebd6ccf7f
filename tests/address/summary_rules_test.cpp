#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "address/address_summary.h"
#include "explorer_texts.h"

namespace orvane::test {
namespace {

constexpr std::int64_t most = INT64_MAX;
constexpr std::int64_t least = INT64_MIN;

Transaction transaction(const std::vector<std::int64_t>& values) {
  Transaction result{.txid = "t", .vin = {{.is_coinbase = false}}, .vout = {}, .status = {}};
  for (const std::int64_t value : values) {
    result.vout.push_back({.scriptpubkey_address = watchedAddress, .value = value});
  }
  return result;
}

AddressStats totals(AddressStats::Stats chain, AddressStats::Stats mempool) {
  return {.chain_stats = chain, .mempool_stats = mempool};
}

const ExplorerError outOfRange{.kind = ExplorerError::Kind::decoding};

TEST(SummaryRulesTest, ListsWhatPaidTheAddressAsOftenAndInTheOrderOfTheExplorer) {
  Transaction first = transaction({1000, 2500});
  first.txid = "first";
  Transaction elsewhere = transaction({});
  elsewhere.vout = {
      {.scriptpubkey_address = "BC1QAR0SRRR7XFKVY5L643LYDNW9RE59GTZZWF5MDQ", .value = 1},
      {.scriptpubkey_address = std::nullopt, .value = 1}};
  Transaction last = transaction({4000});
  last.txid = "last";
  const auto summary =
      buildSummary({}, {last, elsewhere, transaction({0}), first, last}, 0, watchedAddress);
  ASSERT_TRUE(summary);
  ASSERT_EQ(summary->incoming.size(), 3U);
  EXPECT_EQ(summary->incoming[0].txid, "last");
  EXPECT_EQ(summary->incoming[0].sats, 4000);
  EXPECT_EQ(summary->incoming[1].txid, "first");
  EXPECT_EQ(summary->incoming[1].sats, 3500);
  EXPECT_EQ(summary->incoming[2], summary->incoming[0]);
}

TEST(SummaryRulesTest, OnlyTheFirstInputMakesABlockReward) {
  struct Case {
    std::vector<Transaction::Input> inputs;
    bool isCoinbase;
  };
  const std::vector<Case> cases{{{}, false},
                                {{{true}}, true},
                                {{{false}}, false},
                                {{{true}, {false}}, true},
                                {{{false}, {true}}, false}};
  for (const Case& test : cases) {
    Transaction paying = transaction({1});
    paying.vin = test.inputs;
    EXPECT_EQ(incomingTransaction(paying, watchedAddress).value().value().isCoinbase,
              test.isCoinbase);
  }
}

TEST(SummaryRulesTest, OnlyAConfirmedTransactionHasAHeight) {
  Transaction paying = transaction({1});
  const auto height = [&](Transaction::Status status) {
    paying.status = status;
    return incomingTransaction(paying, watchedAddress).value().value().blockHeight;
  };
  EXPECT_EQ(height({.confirmed = true, .block_height = 7}), 7);
  EXPECT_EQ(height({.confirmed = true, .block_height = {}}), std::nullopt);
  EXPECT_EQ(height({.confirmed = false, .block_height = 7}), std::nullopt);
}

TEST(SummaryRulesTest, AmountsThatLeaveTheRangeAreAMalformedAnswer) {
  struct Case {
    std::vector<std::int64_t> values;
    std::optional<std::int64_t> sats;  ///< nothing: malformed
  };
  const std::vector<Case> sums{{{most}, most},
                               {{most, 1}, std::nullopt},
                               {{most, most, least}, most - 1},
                               {{most, 1, -1}, most},
                               {{most, most, most}, std::nullopt}};
  for (const Case& test : sums) {
    const auto incoming = incomingTransaction(transaction(test.values), watchedAddress);
    ASSERT_EQ(incoming.has_value(), test.sats.has_value());
    if (test.sats) {
      EXPECT_EQ(incoming->value().sats, *test.sats);
    } else {
      EXPECT_EQ(incoming.error(), outOfRange);
    }
  }
  EXPECT_EQ(incomingTransaction(transaction({-5}), watchedAddress).value(), std::nullopt);
  EXPECT_EQ(incomingTransaction(transaction({least}), watchedAddress).value(), std::nullopt);
  EXPECT_EQ(incomingTransaction(transaction({least, -1}), watchedAddress).error(), outOfRange);

  const AddressStats::Stats fine{1, 1};
  const AddressStats::Stats above{most, -1};
  const AddressStats::Stats below{least, 1};
  const std::vector<Transaction> malformed{transaction({most, most})};
  EXPECT_EQ(buildSummary(totals(above, fine), {}, 0, "a").error(), outOfRange);
  EXPECT_EQ(buildSummary(totals(fine, below), {}, 0, "a").error(), outOfRange);
  EXPECT_EQ(buildSummary(totals(fine, fine), malformed, 0, watchedAddress).error(), outOfRange);
  EXPECT_EQ(buildSummary(totals({least, least}, {-1, most}), {}, 0, "a")->pendingSats, least);
}

TEST(SummaryRulesTest, CountsConfirmations) {
  struct Case {
    std::int64_t tip;
    std::optional<std::int64_t> block;
    std::int64_t count;
  };
  const std::vector<Case> cases{
      {850000, 850000, 1}, {850098, 850000, 99}, {850099, 850000, coinbaseMaturity},
      {850000, {}, 0},     {849999, 850000, 0},  {0, most, 0},
      {least, most, 0},    {most, least, most},  {most, 0, most},
      {most, 1, most},     {most, 2, most - 1},  {most, most, 1},
      {-1, least, most},   {least, least, 1},    {0, -1, 2},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(confirmations(test.tip, test.block), test.count)
        << test.tip << ", " << test.block.value_or(0);
  }
}

}  // namespace
}  // namespace orvane::test
