#include <functional>

#include <gtest/gtest.h>

#include "pool/malformed_bodies.h"
#include "pool/pool_documents.h"

namespace orvane::test {
namespace {

const std::string profileBody =
    R"({"btc":{"hash_rate_unit":"Gh/s","hash_rate_60m":5.5,"shares_24h":1536,)"
    R"("today_reward":"0.1","current_balance":"0.2","all_time_reward":null}})";
const std::string workersBody =
    R"({"btc":{"workers":{"pellam.mac":{"state":"ok","last_share":1700000000,)"
    R"("hash_rate_unit":"Gh/s","hash_rate_5m":1,"hash_rate_60m":2.5,"hash_rate_24h":3e2}}}})";
const std::string rewardsBody = R"({"btc":{"daily_rewards":[{"date":1794700800,)"
                                R"("total_reward":"0.0001"},{"date":2,"total_reward":""}]}})";
const std::string hashrateBody =
    R"({"btc":[{"date":1794700800,"hash_rate_unit":"Gh/s","hash_rate_24h":5,)"
    R"("total_shares":2048.5}],"other":[]})";

struct Document {
  std::string body;
  std::function<bool(std::string_view)> decodes;
};

const std::vector<Document> documents{
    {.body = profileBody, .decodes = [](auto body) { return decodeProfile(body).has_value(); }},
    {.body = workersBody, .decodes = [](auto body) { return decodeWorkers(body).has_value(); }},
    {.body = rewardsBody, .decodes = [](auto body) { return decodeRewards(body).has_value(); }},
    {.body = hashrateBody,
     .decodes = [](auto body) { return decodeDailyHashrate(body).has_value(); }},
};
const Document& profile = documents[0];
const Document& workers = documents[1];
const Document& rewards = documents[2];
const Document& hashrate = documents[3];

TEST(PoolDecodingTest, GivesNothingForMalformedBodies) {
  for (const Document& document : documents) {
    EXPECT_TRUE(document.decodes(document.body)) << document.body;
    EXPECT_TRUE(document.decodes(withUnreadMember(document.body, "[{}]"))) << document.body;
    EXPECT_TRUE(document.decodes("\xEF\xBB\xBF" + document.body)) << document.body;
    EXPECT_FALSE(document.decodes("[]"));
    expectNothingFrom(malformedBodies(document.body), document.decodes);
  }
}

TEST(PoolDecodingTest, OneMistypedMemberFailsTheWholeDocument) {
  const std::vector<std::string> noText{"null", "1", "true", "[]", "{}"};
  const std::vector<std::string> noNumber{"null", "\"1\"", "true", "[]", "{}"};
  const std::vector<std::string> noInteger{"null", "\"1\"", "true", "1.5", "9223372036854775808"};
  const std::vector<std::string> noObject{"null", "1", "\"\"", "[]", "[{}]"};
  const std::vector<std::string> noArray{"null", "1", "\"\"", "{}", "[1]", "[null]", "[{}]"};
  // An optional member may be null.
  const std::vector<std::string> noOptionalText{"1", "true", "[]"};
  const std::vector<std::string> noOptionalNumber{"\"1\"", "true", "[]"};
  const std::vector<std::string> noOptionalInteger{"\"1\"", "1.5", "-9223372036854775809", "1e19"};
  struct Case {
    const Document& document;
    std::string member;
    const std::vector<std::string>& values;
  };
  const std::vector<Case> cases{
      {profile, R"("hash_rate_unit":"Gh/s")", noText},
      {profile, R"("hash_rate_60m":5.5)", noNumber},
      {profile, R"("shares_24h":1536)", noNumber},
      {profile, R"("today_reward":"0.1")", noText},
      {profile, R"("current_balance":"0.2")", noText},
      {profile, profileBody.substr(1, profileBody.size() - 2), noObject},
      {workers, R"("state":"ok")", noOptionalText},
      {workers, R"("last_share":1700000000)", noOptionalInteger},
      {workers, R"("hash_rate_unit":"Gh/s")", noOptionalText},
      {workers, R"("hash_rate_5m":1)", noOptionalNumber},
      {workers, R"("hash_rate_60m":2.5)", noOptionalNumber},
      {workers, R"("hash_rate_24h":3e2)", noOptionalNumber},
      {workers, workersBody.substr(8, workersBody.size() - 10), noObject},
      {workers, workersBody.substr(1, workersBody.size() - 2), noObject},
      {rewards, R"("date":1794700800)", noInteger},
      {rewards, R"("total_reward":"0.0001")", noText},
      {rewards, rewardsBody.substr(8, rewardsBody.size() - 10), noArray},
      {rewards, rewardsBody.substr(1, rewardsBody.size() - 2), noObject},
      {hashrate, R"("date":1794700800)", noInteger},
      {hashrate, R"("hash_rate_unit":"Gh/s")", noText},
      {hashrate, R"("hash_rate_24h":5)", noNumber},
      {hashrate, R"("total_shares":2048.5)", noNumber},
      {hashrate, R"("other":[])", noArray},
  };
  for (const Case& test : cases) {
    ASSERT_TRUE(test.document.body.contains(test.member)) << test.member;
    expectNothingFrom(withMember(test.document.body, test.member, test.values),
                      test.document.decodes);
  }
}

TEST(PoolDecodingTest, RequiredMembersMayNotBeMissing) {
  expectNothingFrom({"{}", R"({"btc":{}})"}, decodeProfile);
  expectNothingFrom(
      {R"({"btc":{}})", R"({"btc":{"workers":{}},"ltc":{}})", R"({"btc":{"workers":{"a":null}}})"},
      decodeWorkers);
  expectNothingFrom({"{}", R"({"btc":{}})", R"({"btc":{"daily_rewards":[{"date":1}]}})"},
                    decodeRewards);
  EXPECT_FALSE(decodeDailyHashrate(R"({"btc":[{}]})"));
}

TEST(PoolDecodingTest, OptionalMembersMayBeMissingOrNull) {
  for (const std::string_view worker :
       {"{}", R"({"state":null,"last_share":null,"hash_rate_unit":null,"hash_rate_5m":null})"}) {
    const std::optional<BraiinsWorkersResponse> response =
        decodeWorkers(R"({"btc":{"workers":{"a":)" + std::string(worker) + "}}}");
    ASSERT_TRUE(response);
    EXPECT_FALSE(response->values.at("btc").workers.at("a").state);
    EXPECT_FALSE(response->values.at("btc").workers.at("a").lastShare);
  }
  EXPECT_TRUE(decodeWorkers("{}"));
  EXPECT_TRUE(decodeDailyHashrate("{}"));
}

}  // namespace
}  // namespace orvane::test
