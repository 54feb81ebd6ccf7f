#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "services/services_client.h"

namespace orvane::test {
namespace {

std::vector<nlohmann::json> linesOf(const LocalServices& services) {
  std::ifstream file(services.caFile().parent_path() / "requests.log");
  std::vector<nlohmann::json> lines;
  for (std::string line; std::getline(file, line);)
    lines.push_back(nlohmann::json::parse(line));
  return lines;
}

TEST(RequestLogTest, LineIsThereWhenTheAnswerIsAndTellsWhatWasSent) {
  const LocalServices services;
  clientOf(services, Service::pool)
      .Get(profileTarget, {{"Pool-Auth-Token", "wrong"}, {"X-Twice", "1"}, {"X-Twice", "2"}});
  const auto lines = linesOf(services);
  ASSERT_EQ(lines.size(), 1U);
  const auto& line = lines.front();
  EXPECT_EQ(line["service"], "pool");
  EXPECT_EQ(line["method"], "GET");
  EXPECT_EQ(line["path"], profileTarget);
  EXPECT_EQ(line["status"], 401);
  EXPECT_FALSE(line.contains("fault"));
  EXPECT_GT(line["time"], 1'700'000'000'000);
  std::vector<std::string> twice;
  for (const auto& header : line["headers"]) {
    if (header["name"] == "X-Twice") twice.push_back(header["value"]);
  }
  EXPECT_EQ(twice, (std::vector<std::string>{"1", "2"}));
}

TEST(RequestLogTest, NothingIsAddedToTheHeadersTheClientSent) {
  const LocalServices services;
  clientOf(services, Service::pool).Get(profileTarget, sampleTokenHeader());
  std::vector<std::string> names;
  const auto entries = services.requests();
  for (const auto& header : entries.front().headers)
    names.push_back(header.name);
  std::erase(names, "Accept-Encoding");
  std::ranges::sort(names);
  const std::vector<std::string> expected{"Accept", "Connection", "Host", "Pool-Auth-Token",
                                          "User-Agent"};
  EXPECT_EQ(names, expected);
}

TEST(RequestLogTest, FaultIsNamedAndUnsentStatusIsZero) {
  LocalServices services;
  services.fault({.service = Service::price, .kind = FaultKind::hangUp});
  EXPECT_FALSE(clientOf(services, Service::price).Get(priceTarget));
  const auto line = linesOf(services).front();
  EXPECT_EQ(line["fault"], "hang-up");
  EXPECT_EQ(line["status"], 0);
}

TEST(RequestLogTest, TimeBetweenRequestsIsCountedPerService) {
  const LocalServices services;
  auto pool = clientOf(services, Service::pool);
  pool.Get(profileTarget);
  clientOf(services, Service::price).Get(priceTarget);
  pool.Get(workersTarget);
  const auto entries = services.requests();
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_FALSE(entries[0].sincePrevious);
  EXPECT_FALSE(entries[1].sincePrevious);
  ASSERT_TRUE(entries[2].sincePrevious);
  EXPECT_DOUBLE_EQ(*entries[2].sincePrevious, entries[2].monotonic - entries[0].monotonic);
}

TEST(RequestLogTest, BytesThatAreNoTextDoNotBreakALine) {
  const LocalServices services;
  clientOf(services, Service::pool).Get(profileTarget, {{"X-Bytes", "\xff\xfe"}});
  EXPECT_EQ(linesOf(services).size(), 1U);
}

}  // namespace
}  // namespace orvane::test
