#include <algorithm>

#include <nlohmann/json.hpp>

#include "platform/http/odd_server.h"
#include "platform/http/transport_fixture.h"

namespace orvane::test {
namespace {

class AnswersTest : public TransportTest {};

TEST_F(AnswersTest, BodyArrivesWholeAndRequestAsItWasMeant) {
  const HttpResult result = get(profileRequest());
  ASSERT_TRUE(result);
  EXPECT_EQ(result->status, 200);
  EXPECT_TRUE(nlohmann::json::parse(result->body, nullptr, false).contains("btc"));

  ASSERT_EQ(local.requests().size(), 1U);
  const LoggedRequest request = local.requests().front();
  EXPECT_EQ(request.method, "GET");
  EXPECT_EQ(request.target, profileTarget);
}

TEST_F(AnswersTest, TheRequestsOwnHeaderIsTheOnlyOneBeyondTheStacks) {
  ASSERT_TRUE(get(profileRequest()));
  std::vector<std::string> names;
  const LoggedRequest request = local.requests().front();
  for (const services::Header& header : request.headers) {
    names.push_back(header.name);
    if (header.name == "Pool-Auth-Token") {
      EXPECT_EQ(header.value, services::sampleToken);
    }
  }
  std::ranges::sort(names);
  EXPECT_EQ(names, (std::vector<std::string>{"Accept-Encoding", "Accept-Language", "Connection",
                                             "Host", "Pool-Auth-Token", "User-Agent"}));
}

TEST_F(AnswersTest, EveryStatusIsAnAnswer) {
  for (const int status : {204, 400, 401, 403, 404, 407, 409, 410, 429, 500, 501, 503, 599}) {
    SCOPED_TRACE(status);
    local.fault({.service = Service::explorer, .count = 1, .status = status});
    const HttpResult result = get(tipRequest());
    ASSERT_TRUE(result);
    EXPECT_EQ(result->status, status);
    EXPECT_EQ(result->body.empty(), status == 204);
  }
  EXPECT_EQ(local.requests().size(), 13U);
}

TEST_F(AnswersTest, SpoiledDocumentsAreAnswersAllTheSame) {
  for (const FaultKind kind : {FaultKind::garbage, FaultKind::truncatedJson}) {
    local.fault({.service = Service::explorer, .kind = kind, .count = 1});
    const HttpResult result = get(tipRequest());
    ASSERT_TRUE(result);
    EXPECT_EQ(result->status, 200);
  }
}

TEST_F(AnswersTest, RedirectWithinTheOriginKeepsTheHeaders) {
  local.fault({.service = Service::pool, .kind = FaultKind::redirectWithin});
  const HttpResult result = get(profileRequest());
  ASSERT_TRUE(result);
  EXPECT_EQ(result->status, 200);
  EXPECT_EQ(local.requests().back().target, std::string("/moved") + profileTarget);
}

TEST_F(AnswersTest, AnotherOriginNeverSeesARequestWithHeaders) {
  local.fault({.service = Service::pool, .kind = FaultKind::redirect});
  const HttpResult result = get(profileRequest());
  ASSERT_TRUE(result);
  EXPECT_EQ(result->status, 302);
  EXPECT_TRUE(local.requests(Service::other).empty());
}

TEST_F(AnswersTest, RequestWithoutHeadersGoesToAnotherOriginWithoutReferer) {
  local.fault({.service = Service::explorer, .kind = FaultKind::redirect});
  const HttpResult result = get(tipRequest());
  ASSERT_TRUE(result);
  EXPECT_EQ(result->status, 200);
  ASSERT_EQ(local.requests(Service::other).size(), 1U);
  const LoggedRequest request = local.requests(Service::other).front();
  for (const services::Header& header : request.headers)
    EXPECT_NE(header.name, "Referer");
}

std::string emptyAnswer(const std::string& statusAndHeaders) {
  return "HTTP/1.1 " + statusAndHeaders + "\r\nContent-Length: 0\r\n\r\n";
}

TEST_F(AnswersTest, RedirectsEndSomewhere) {
  const OddServer server([](const Request&) { return emptyAnswer("302 Found\r\nLocation: /on"); });
  QtHttpTransport odd({.extraCaFile = server.caFile()});
  const HttpResult result = run(odd.get({.url = server.origin()}));
  ASSERT_TRUE(result);
  EXPECT_EQ(result->status, 302);
  EXPECT_EQ(server.requests().size(), 6U);
}

TEST_F(AnswersTest, ACookieIsNeverSentBack) {
  const OddServer server([](const Request& request) {
    return emptyAnswer(request.target == "/" ? "302 Found\r\nSet-Cookie: a=b\r\nLocation: /on"
                                             : "200 OK\r\nSet-Cookie: a=b");
  });
  QtHttpTransport odd({.extraCaFile = server.caFile()});
  EXPECT_TRUE(run(odd.get({.url = server.origin()})));
  EXPECT_TRUE(run(odd.get({.url = server.origin()})));
  EXPECT_EQ(server.requests().size(), 4U);
  for (const Request& request : server.requests())
    EXPECT_EQ(request.header("Cookie"), nullptr);
}

TEST_F(AnswersTest, AChallengeIsAnAnswerAndNotAnsweredItself) {
  for (const std::string scheme : {"Basic realm=\"x\"", "Negotiate", "NTLM"}) {
    SCOPED_TRACE(scheme);
    const OddServer server([&](const Request&) {
      return emptyAnswer("401 Unauthorized\r\nWWW-Authenticate: " + scheme);
    });
    QtHttpTransport odd({.extraCaFile = server.caFile()});
    const HttpResult result = run(odd.get({.url = server.origin()}));
    ASSERT_TRUE(result);
    EXPECT_EQ(result->status, 401);
    EXPECT_EQ(server.requests().size(), 1U);
  }
}

}  // namespace
}  // namespace orvane::test
