#include <algorithm>

#include <nlohmann/json.hpp>

#include "platform/http/transport_fixture.h"

namespace orvane::test {
namespace {

class AnswersTest : public TransportTest {};

TEST_F(AnswersTest, BodyArrivesWholeAndTheRequestHasOneHeaderBeyondTheStacks) {
  const HttpResult result = get(profileRequest());
  ASSERT_TRUE(result);
  EXPECT_EQ(result->status, 200);
  EXPECT_TRUE(nlohmann::json::parse(result->body, nullptr, false).contains("btc"));

  ASSERT_EQ(local.requests().size(), 1U);
  const LoggedRequest request = local.requests().front();
  EXPECT_EQ(request.method, "GET");
  EXPECT_EQ(request.target, profileTarget);
  std::vector<std::string> names;
  for (const services::Header& header : request.headers) {
    names.push_back(header.name);
  }
  std::ranges::sort(names);
  EXPECT_EQ(names, (std::vector<std::string>{"Accept-Encoding", "Accept-Language", "Connection",
                                             "Host", "Pool-Auth-Token", "User-Agent"}));
}

TEST_F(AnswersTest, EveryStatusIsAnAnswer) {
  for (const int status : {204, 401, 403, 404, 407, 409, 410, 429, 500, 503, 599}) {
    local.clearFaults();
    local.fault({.service = Service::explorer, .status = status});
    const HttpResult result = get(tipRequest());
    EXPECT_EQ(result.value_or(HttpResponse{}).status, status);
  }
  EXPECT_EQ(local.requests().size(), 11U);
}

TEST_F(AnswersTest, RedirectsKeepTheHeadersWithinTheOriginAndLeaveItOnlyWithoutThem) {
  local.fault({.service = Service::pool, .kind = FaultKind::redirectWithin, .count = 1});
  EXPECT_EQ(get(profileRequest()).value().status, 200);
  EXPECT_EQ(local.requests().back().target, std::string("/moved") + profileTarget);

  local.fault({.service = Service::pool, .kind = FaultKind::redirect});
  EXPECT_EQ(get(profileRequest()).value().status, 302);
  EXPECT_TRUE(local.requests(Service::other).empty());

  local.fault({.service = Service::explorer, .kind = FaultKind::redirect});
  EXPECT_EQ(get(tipRequest()).value().status, 200);
  const auto elsewhere = local.requests(Service::other);
  ASSERT_EQ(elsewhere.size(), 1U);
  for (const services::Header& header : elsewhere.front().headers) {
    EXPECT_NE(header.name, "Referer");
  }
}

std::string emptyAnswer(const std::string& statusAndHeaders) {
  return "HTTP/1.1 " + statusAndHeaders + "\r\nContent-Length: 0\r\n\r\n";
}

TEST_F(AnswersTest, RedirectsEndSomewhereAndACookieIsNeverSentBack) {
  const OddServer server(
      [](const Request&) { return emptyAnswer("302 Found\r\nSet-Cookie: a=b\r\nLocation: /on"); });
  EXPECT_EQ(getFrom(server).value().status, 302);
  EXPECT_EQ(server.requests().size(), 6U);
  for (const Request& request : server.requests()) {
    EXPECT_EQ(request.header("Cookie"), nullptr);
  }
}

TEST_F(AnswersTest, AChallengeIsAnAnswerAndNotAnsweredItself) {
  for (const std::string scheme : {"Basic realm=\"x\"", "Negotiate", "NTLM"}) {
    const OddServer server([&](const Request&) {
      return emptyAnswer("401 Unauthorized\r\nWWW-Authenticate: " + scheme);
    });
    EXPECT_EQ(getFrom(server).value().status, 401) << scheme;
    EXPECT_EQ(server.requests().size(), 1U) << scheme;
  }
}

}  // namespace
}  // namespace orvane::test
