#include <gtest/gtest.h>

#include "pool/malformed_bodies.h"
#include "prices/bitcoin_price_service.h"

namespace orvane::test {
namespace {

const std::string primaryBody = R"({"bitcoin":{"eur":84123.4,"usd":97000,"jpy":null}})";
const std::string fallbackBody =
    R"({"data":{"currency":"BTC","rates":{"EUR":"84123.45","USD":"97000.1","AED":""}}})";

TEST(PriceDecodingTest, GivesNothingForMalformedBodies) {
  expectNothingFrom(malformedBodies(primaryBody), decodeCurrentPrice);
  expectNothingFrom(malformedBodies(fallbackBody), decodeCoinbasePrice);
}

TEST(PriceDecodingTest, OneMistypedMemberFailsTheWholeDocument) {
  const std::vector<std::string> noNumber{"null", "\"1\"", "true", "[]", "{}"};
  for (const std::string_view member : {R"("eur":84123.4)", R"("usd":97000)"}) {
    expectNothingFrom(withMember(primaryBody, member, noNumber), decodeCurrentPrice);
  }
  const std::vector<std::string> noText{"null", "1", "true", "[]", "{}"};
  for (const std::string_view rate : {R"("USD":"97000.1")", R"("AED":"")"}) {
    expectNothingFrom(withMember(fallbackBody, rate, noText), decodeCoinbasePrice);
  }
  expectNothingFrom({"{}", R"({"bitcoin":{"eur":1}})", R"({"bitcoin":{"EUR":1,"usd":1}})",
                     R"({"bitcoin":null})", R"({"bitcoin":[]})"},
                    decodeCurrentPrice);
  expectNothingFrom({"{}", R"({"data":{}})", R"({"data":[]})", R"({"data":{"rates":null}})",
                     R"({"data":{"rates":["1"]}})", R"({"data":{"rates":{"A":1,"A":"1"}}})"},
                    decodeCoinbasePrice);
}

}  // namespace
}  // namespace orvane::test
