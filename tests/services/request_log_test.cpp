#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "services/services_client.h"

namespace orvane::test {
namespace {

TEST(RequestLogTest, ALineTellsWhatWasSentAndHowItWasAnswered) {
  LocalServices services;
  clientOf(services, Service::pool)
      .Get(profileTarget, {{"Pool-Auth-Token", "wrong"}, {"X-Twice", "1"}, {"X-Twice", "\xff"}});
  services.fault({.service = Service::price, .kind = FaultKind::hangUp});
  EXPECT_FALSE(clientOf(services, Service::price).Get(priceTarget));

  std::ifstream file(services.caFile().parent_path() / "requests.log");
  std::vector<nlohmann::json> lines;
  for (std::string line; std::getline(file, line);) {
    lines.push_back(nlohmann::json::parse(line));
  }
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0]["service"], "pool");
  EXPECT_EQ(lines[0]["method"], "GET");
  EXPECT_EQ(lines[0]["path"], profileTarget);
  EXPECT_EQ(lines[0]["status"], 401);
  EXPECT_FALSE(lines[0].contains("fault"));
  EXPECT_GT(lines[0]["time"], 1'700'000'000'000);
  EXPECT_EQ(lines[1]["fault"], "hang-up");
  EXPECT_EQ(lines[1]["status"], 0) << "nothing was sent";

  std::vector<std::string> names;
  for (const auto& header : lines[0]["headers"]) {
    names.push_back(header["name"]);
  }
  EXPECT_EQ(std::ranges::count(names, "X-Twice"), 2);
  EXPECT_EQ(std::ranges::count(names, "Pool-Auth-Token"), 1);
}

TEST(RequestLogTest, TimeBetweenRequestsIsCountedPerService) {
  const LocalServices services;
  for (const Service service : {Service::pool, Service::price, Service::pool}) {
    clientOf(services, service).Get("/");
  }
  const auto entries = services.requests();
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_FALSE(entries[0].sincePrevious || entries[1].sincePrevious);
  EXPECT_DOUBLE_EQ(entries[2].sincePrevious.value(), entries[2].monotonic - entries[0].monotonic);
}

}  // namespace
}  // namespace orvane::test
