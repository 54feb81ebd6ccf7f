#include "pool/pool_documents.h"

#include "support/document_members.h"

namespace orvane::test {
namespace {

using enum MemberType;

TEST(PoolDocumentsTest, AProfileMatchesAsAWhole) {
  expectMembers(decodeProfile,
                R"({"btc":{"hash_rate_unit":"Gh/s","hash_rate_60m":5.5,"shares_24h":1536,)"
                R"("today_reward":"0.1","current_balance":"0.2","all_time_reward":null}})",
                {{"hash_rate_unit", R"("Gh/s")", text},
                 {"hash_rate_60m", "5.5", number},
                 {"shares_24h", "1536", number},
                 {"today_reward", R"("0.1")", text},
                 {"current_balance", R"("0.2")", text}});
  EXPECT_FALSE(decodeProfile("{}"));
  EXPECT_FALSE(decodeProfile("[]"));
}

TEST(PoolDocumentsTest, WorkersMatchAsAWholeButMaySayNothing) {
  expectMembers(decodeWorkers,
                R"({"btc":{"workers":{"pellam.mac":{"state":"ok","last_share":1700000000,)"
                R"("hash_rate_unit":"Gh/s","hash_rate_5m":1,"hash_rate_60m":2.5,)"
                R"("hash_rate_24h":3e2}}},"ltc":{"workers":{}}})",
                {{"state", R"("ok")", optionalText},
                 {"last_share", "1700000000", optionalInteger},
                 {"hash_rate_unit", R"("Gh/s")", optionalText},
                 {"hash_rate_5m", "1", optionalNumber},
                 {"hash_rate_60m", "2.5", optionalNumber},
                 {"hash_rate_24h", "3e2", optionalNumber},
                 {"ltc", R"({"workers":{}})", object}});
  EXPECT_TRUE(decodeWorkers("{}"));
  EXPECT_TRUE(decodeWorkers(R"({"btc":{"workers":{"a":{}}}})"));
  EXPECT_FALSE(decodeWorkers(R"({"btc":{"workers":{"a":null}}})"));
}

TEST(PoolDocumentsTest, RewardsMatchAsAWhole) {
  const std::string list = R"([{"date":1794700800,"total_reward":"0.0001"}])";
  expectMembers(decodeRewards, R"({"btc":{"daily_rewards":)" + list + "}}",
                {{"date", "1794700800", integer},
                 {"total_reward", R"("0.0001")", text},
                 {"daily_rewards", list, array}});
  EXPECT_FALSE(decodeRewards("{}"));
}

TEST(PoolDocumentsTest, HashratesMatchAsAWholeAlsoInGroupsThatAreNotUsed) {
  expectMembers(decodeDailyHashrate,
                R"({"btc":[{"date":1794700800,"hash_rate_unit":"Gh/s","hash_rate_24h":5,)"
                R"("total_shares":2048.5}],"other":[]})",
                {{"date", "1794700800", integer},
                 {"hash_rate_unit", R"("Gh/s")", text},
                 {"hash_rate_24h", "5", number},
                 {"total_shares", "2048.5", number},
                 {"other", "[]", array}});
  EXPECT_TRUE(decodeDailyHashrate("{}"));
}

}  // namespace
}  // namespace orvane::test
