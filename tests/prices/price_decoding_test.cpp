#include "prices/price_decoding.h"

#include <gtest/gtest.h>

#include "pool/malformed_bodies.h"

namespace orvane::test {
namespace {

const std::string primaryBody = R"({"bitcoin":{"eur":84123.4,"usd":97000,"jpy":null}})";
const std::string fallbackBody =
    R"({"data":{"currency":"BTC","rates":{"EUR":"84123.45","USD":"97000.1","AED":""}}})";

TEST(PriceDecodingTest, GivesNothingForMalformedBodies) {
  for (const std::string& body : malformedBodies(primaryBody)) {
    EXPECT_FALSE(decodeCurrentPrice(body)) << body.substr(0, 200);
  }
  for (const std::string& body : malformedBodies(fallbackBody)) {
    EXPECT_FALSE(decodeCoinbasePrice(body)) << body.substr(0, 200);
  }
}

TEST(PriceDecodingTest, OneMistypedMemberFailsTheWholeDocument) {
  const std::vector<std::string> noNumber{"null", "\"1\"", "true", "[]", "{}"};
  for (const std::string_view member : {R"("eur":84123.4)", R"("usd":97000)"}) {
    for (const std::string& body : withMember(primaryBody, member, noNumber)) {
      EXPECT_FALSE(decodeCurrentPrice(body)) << body;
    }
  }
  const std::vector<std::string> noText{"null", "1", "true", "[]", "{}"};
  for (const std::string_view rate : {R"("USD":"97000.1")", R"("AED":"")"}) {
    for (const std::string& body : withMember(fallbackBody, rate, noText)) {
      EXPECT_FALSE(decodeCoinbasePrice(body)) << body;
    }
  }
  for (const std::string_view body :
       {"{}", R"({"bitcoin":{"eur":1}})", R"({"bitcoin":{"EUR":1,"usd":1}})", R"({"bitcoin":null})",
        R"({"bitcoin":[]})"}) {
    EXPECT_FALSE(decodeCurrentPrice(body)) << body;
  }
  for (const std::string_view body :
       {"{}", R"({"data":{}})", R"({"data":[]})", R"({"data":{"rates":null}})",
        R"({"data":{"rates":["1"]}})", R"({"data":{"rates":{"A":1,"A":"1"}}})"}) {
    EXPECT_FALSE(decodeCoinbasePrice(body)) << body;
  }
}

}  // namespace
}  // namespace orvane::test
