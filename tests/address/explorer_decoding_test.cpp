#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "address/explorer_documents.h"
#include "explorer_texts.h"
#include "pool/malformed_bodies.h"

namespace orvane::test {
namespace {

const std::string totals = totalsText(150000, 50000);
const std::string transactions =
    R"([{"txid":"a","fee":3,"vin":[{"is_coinbase":false},{"is_coinbase":true}],)"
    R"("vout":[{"scriptpubkey_address":"x","value":5},{"value":0},)"
    R"({"scriptpubkey_address":null,"value":7}],)"
    R"("status":{"confirmed":true,"block_height":850000,"block_hash":"00"}},)"
    R"({"txid":"b","vin":[],"vout":[],"status":{"confirmed":false}}])";

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
  EXPECT_EQ(first.vout[1].scriptpubkey_address, std::nullopt);
  EXPECT_EQ(first.vout[2].value, 7);
  EXPECT_EQ(first.status.block_height, 850000);
  EXPECT_FALSE(list->back().status.confirmed);
  EXPECT_EQ(list->back().status.block_height, std::nullopt);
  EXPECT_EQ(decodeTransactions(" [ ] ").value().size(), 0U);
}

TEST(ExplorerDecodingTest, RefusesTotalsOfAnotherShape) {
  const std::string chain = R"("chain_stats":{"funded_txo_sum":150000,"spent_txo_sum":50000})";
  const std::string sum = R"("funded_txo_sum":150000)";
  expectNothingFrom(withMember(totals, sum,
                               {"null", R"("1")", "true", "1.5", "9223372036854775808",
                                "-9223372036854775809", "1e400"}),
                    decodeAddressStats);
  expectNothingFrom(withMember(totals, chain, {"null", "[]", "1", "{}"}), decodeAddressStats);
  for (const char* name : {"chain_stats", "mempool_stats", "spent_txo_sum"}) {
    std::string body = totals;
    EXPECT_FALSE(decodeAddressStats(body.replace(body.find(name), 1, "X"))) << body;
  }
  for (const std::string& body :
       withMember(totals, sum, {"9223372036854775807", "-9223372036854775808", "15e4"})) {
    EXPECT_TRUE(decodeAddressStats(body)) << body;
  }
}

TEST(ExplorerDecodingTest, OneWrongMemberFailsTheWholeList) {
  struct Case {
    std::string member;
    std::vector<std::string> refused;
    std::vector<std::string> accepted;
  };
  const std::vector<Case> cases{
      {R"("txid":"b")", {"null", "7"}, {}},
      {R"("vin":[])", {"null", "{}", "[{}]", "[null]"}, {}},
      {R"("is_coinbase":true)", {"1", "null"}, {}},
      {R"("vout":[])", {"null", "[[]]", R"([{"scriptpubkey_address":"x"}])"}, {}},
      {R"("value":0)", {"null", R"("0")", "0.1"}, {}},
      {R"("scriptpubkey_address":"x")", {"5", R"(["x"])"}, {}},
      {R"("status":{"confirmed":false})", {"null", "{}", R"({"confirmed":"false"})"}, {}},
      {R"("block_height":850000)", {R"("850000")", "850000.5", "false"}, {"null"}},
      {R"("fee":3)", {}, {"[null,{}]"}},
  };
  for (const Case& test : cases) {
    ASSERT_TRUE(transactions.contains(test.member)) << test.member;
    expectNothingFrom(withMember(transactions, test.member, test.refused), decodeTransactions);
    for (const std::string& body : withMember(transactions, test.member, test.accepted)) {
      EXPECT_TRUE(decodeTransactions(body)) << body;
    }
  }
  for (const char* name : {"txid", "vin", "vout", "value", "status", "confirmed"}) {
    std::string body = transactions;
    EXPECT_FALSE(decodeTransactions(body.replace(body.find(name), 1, "X"))) << body;
  }
}

TEST(ExplorerDecodingTest, GivesNothingForMalformedBodies) {
  expectNothingFrom(malformedBodies(totals), decodeAddressStats);
  expectNothingFrom(malformedBodies(transactions), decodeTransactions);
  EXPECT_FALSE(decodeAddressStats(transactions));
  EXPECT_FALSE(decodeTransactions(totals));
}

TEST(ExplorerDecodingTest, ParsesTheTipHeight) {
  const std::vector<std::pair<std::string, std::int64_t>> heights{
      {"850000\n", 850000},
      {"\u00a0\u2028 850000\t\r\n\u0085", 850000},
      {"+850000", 850000},
      {"-1", -1},
      {"0000000000000000000000000850000", 850000},
      {"9223372036854775807", INT64_MAX},
      {"-9223372036854775808", INT64_MIN},
  };
  for (const auto& [text, height] : heights) {
    EXPECT_EQ(parseTipHeight(text), height) << text;
  }
  expectNothingFrom({"9223372036854775808",
                     "-9223372036854775809",
                     "",
                     " \n",
                     "+",
                     "-",
                     "+-5",
                     "-+5",
                     "++5",
                     "- 5",
                     "850 000",
                     "850,000",
                     "850000.0",
                     "8e5",
                     "0x10",
                     "٨٥",
                     "850000\ufffd",
                     "\ufeff850000",
                     std::string("850000\0", 7),
                     "{\"height\":850000}"},
                    parseTipHeight);
}

}  // namespace
}  // namespace orvane::test
