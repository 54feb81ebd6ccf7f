#include "address/explorer_decoding.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "explorer_texts.h"

namespace orvane::test {
namespace {

const std::string totals = totalsText(150000, 50000);
const std::string transactions =
    R"([{"txid":"a","fee":3,"vin":[{"is_coinbase":false},{"is_coinbase":true}],)"
    R"("vout":[{"scriptpubkey_address":"x","value":5},{"value":0},)"
    R"({"scriptpubkey_address":null,"value":7}],)"
    R"("status":{"confirmed":true,"block_height":850000,"block_hash":"00"}},)"
    R"({"txid":"b","vin":[],"vout":[],"status":{"confirmed":false}}])";

TEST(ExplorerDecodingTest, ReadsTheTotals) {
  const auto stats = decodeAddressStats(totals);
  ASSERT_TRUE(stats);
  EXPECT_EQ(stats->chain_stats.funded_txo_sum, 150000);
  EXPECT_EQ(stats->chain_stats.spent_txo_sum, 50000);
  EXPECT_EQ(stats->mempool_stats.funded_txo_sum, 0);
  EXPECT_EQ(stats->mempool_stats.spent_txo_sum, 20000);
}

TEST(ExplorerDecodingTest, ReadsTransactionsInTheirOrder) {
  const auto list = decodeTransactions(transactions);
  ASSERT_TRUE(list);
  ASSERT_EQ(list->size(), 2U);
  const Transaction& first = list->front();
  EXPECT_EQ(first.txid, "a");
  ASSERT_EQ(first.vin.size(), 2U);
  EXPECT_FALSE(first.vin[0].is_coinbase);
  EXPECT_TRUE(first.vin[1].is_coinbase);
  ASSERT_EQ(first.vout.size(), 3U);
  EXPECT_EQ(first.vout[0].scriptpubkey_address, "x");
  EXPECT_EQ(first.vout[0].value, 5);
  EXPECT_EQ(first.vout[1].scriptpubkey_address, std::nullopt);
  EXPECT_EQ(first.vout[2].scriptpubkey_address, std::nullopt);
  EXPECT_TRUE(first.status.confirmed);
  EXPECT_EQ(first.status.block_height, 850000);
  EXPECT_EQ(list->back().txid, "b");
  EXPECT_FALSE(list->back().status.confirmed);
  EXPECT_EQ(list->back().status.block_height, std::nullopt);
  EXPECT_EQ(decodeTransactions(" [ ] ").value().size(), 0U);
}

/// `text` with every occurrence of `from` replaced.
std::string with(std::string text, const std::string& from, const std::string& to) {
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

struct Change {
  std::string from;
  std::string to;
  bool accepted = false;
};

TEST(ExplorerDecodingTest, RefusesTotalsOfAnotherShape) {
  const std::vector<Change> changes{
      {.from = "chain_stats", .to = "Chain_stats"},
      {.from = "mempool_stats", .to = "mempool"},
      {.from = "spent_txo_sum", .to = "spent"},
      {.from = R"({"funded_txo_sum":150000,"spent_txo_sum":50000})", .to = "null"},
      {.from = R"({"funded_txo_sum":150000,"spent_txo_sum":50000})", .to = "[]"},
      {.from = "150000", .to = "null"},
      {.from = "150000", .to = R"("150000")"},
      {.from = "150000", .to = "true"},
      {.from = "150000", .to = "1.5"},
      {.from = "150000", .to = "9223372036854775808"},
      {.from = "150000", .to = "-9223372036854775809"},
      {.from = "150000", .to = "1e400"},
      {.from = "150000", .to = "9223372036854775807", .accepted = true},
      {.from = "150000", .to = "-9223372036854775808", .accepted = true},
      {.from = "150000", .to = "15e4", .accepted = true},
      {.from = "{\"chain", .to = "{\"tx_count\":[],\"chain", .accepted = true},
  };
  for (const Change& change : changes) {
    const std::string body = with(totals, change.from, change.to);
    ASSERT_NE(body, totals);
    EXPECT_EQ(decodeAddressStats(body).has_value(), change.accepted) << body;
  }
}

TEST(ExplorerDecodingTest, OneWrongMemberFailsTheWholeList) {
  const std::vector<Change> changes{
      {.from = R"("txid":"b")", .to = R"("id":"b")"},
      {.from = R"("b")", .to = "null"},
      {.from = R"("b")", .to = "7"},
      {.from = R"("vin":[],)", .to = ""},
      {.from = R"("vin":[])", .to = R"("vin":null)"},
      {.from = R"("vin":[])", .to = R"("vin":{})"},
      {.from = R"("vin":[])", .to = R"("vin":[{}])"},
      {.from = R"("vin":[])", .to = R"("vin":[null])"},
      {.from = R"("is_coinbase":true)", .to = R"("is_coinbase":1)"},
      {.from = R"("is_coinbase":true)", .to = R"("is_coinbase":null)"},
      {.from = R"("vout":[],)", .to = ""},
      {.from = R"("vout":[])", .to = R"("vout":[[]])"},
      {.from = R"({"value":0})", .to = R"({"scriptpubkey_address":"x"})"},
      {.from = R"({"value":0})", .to = R"({"value":null})"},
      {.from = R"({"value":0})", .to = R"({"value":"0"})"},
      {.from = R"({"value":0})", .to = R"({"value":0.1})"},
      {.from = R"("x")", .to = "5"},
      {.from = R"("x")", .to = "[\"x\"]"},
      {.from = R"(,"status":{"confirmed":false})", .to = ""},
      {.from = R"({"confirmed":false})", .to = "null"},
      {.from = R"({"confirmed":false})", .to = "{}"},
      {.from = "false}}]", .to = "\"false\"}}]"},
      {.from = "850000", .to = R"("850000")"},
      {.from = "850000", .to = "850000.5"},
      {.from = "850000", .to = "false"},
      {.from = "850000", .to = "null", .accepted = true},
      {.from = R"(,"block_height":850000)", .to = "", .accepted = true},
      {.from = R"("fee":3)", .to = R"("fee":[null,{}])", .accepted = true},
  };
  for (const Change& change : changes) {
    const std::string body = with(transactions, change.from, change.to);
    ASSERT_NE(body, transactions);
    EXPECT_EQ(decodeTransactions(body).has_value(), change.accepted) << body;
  }
}

std::string deep(const std::string& open, std::size_t levels) {
  std::string text;
  while (levels-- > 0)
    text += open;
  return text;
}

TEST(ExplorerDecodingTest, SurvivesBodiesThatAreNoDocument) {
  const std::vector<std::string> bodies{"",
                                        " ",
                                        "null",
                                        "true",
                                        "0",
                                        "\"\"",
                                        "{}",
                                        "[0]",
                                        "[[]]",
                                        "[null]",
                                        "<html></html>",
                                        std::string(3, '\0'),
                                        std::string("\xff\xfe[\0]\0", 6),
                                        "{\"chain_stats\":\"\xc3\"}",
                                        "[] []",
                                        "[{}",
                                        deep("[", 100'000),
                                        deep("{\"chain_stats\":", 100'000),
                                        deep("[", 100'000) + std::string(100'000, ']'),
                                        deep("[{\"vout\":", 100'000)};
  for (const std::string& body : bodies) {
    EXPECT_FALSE(decodeAddressStats(body)) << body.substr(0, 40);
    EXPECT_FALSE(decodeTransactions(body)) << body.substr(0, 40);
  }
  EXPECT_FALSE(decodeAddressStats(transactions));
  EXPECT_FALSE(decodeTransactions(totals));
}

TEST(ExplorerDecodingTest, RefusesBodiesCutOffAnywhere) {
  for (std::size_t size = 0; size < totals.size(); ++size) {
    EXPECT_FALSE(decodeAddressStats(totals.substr(0, size))) << size;
  }
  for (std::size_t size = 0; size < transactions.size(); ++size) {
    EXPECT_FALSE(decodeTransactions(transactions.substr(0, size))) << size;
  }
}

TEST(ExplorerDecodingTest, ParsesTheTipHeight) {
  struct Case {
    std::string text;
    std::optional<std::int64_t> height;
  };
  const std::vector<Case> cases{
      {"850000\n", 850000},
      {"\u00a0\u2028 850000\t\r\n", 850000},
      {"+850000", 850000},
      {"-1", -1},
      {"0000000000000000000000000850000", 850000},
      {"9223372036854775807", INT64_MAX},
      {"-9223372036854775808", INT64_MIN},
      {"9223372036854775808", std::nullopt},
      {"-9223372036854775809", std::nullopt},
      {"", std::nullopt},
      {" \n", std::nullopt},
      {"+", std::nullopt},
      {"-", std::nullopt},
      {"+-5", std::nullopt},
      {"-+5", std::nullopt},
      {"++5", std::nullopt},
      {"- 5", std::nullopt},
      {"850 000", std::nullopt},
      {"850,000", std::nullopt},
      {"850000.0", std::nullopt},
      {"8e5", std::nullopt},
      {"0x10", std::nullopt},
      {"٨٥", std::nullopt},
      {"850000\ufffd", std::nullopt},
      {"\ufeff850000", std::nullopt},
      {"\u0085850000\u0085", 850000},
      {std::string("850000\0", 7), std::nullopt},
      {"{\"height\":850000}", std::nullopt},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(parseTipHeight(test.text), test.height) << test.text;
  }
}

}  // namespace
}  // namespace orvane::test
