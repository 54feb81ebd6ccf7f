#include "prices/bitcoin_price_service.h"
#include <cmath>
#include <limits>
#include "support/comma_locale.h"
#include "support/document_members.h"
#include "support/run_task.h"
#include "support/scripted_transport.h"

namespace orvane::test { namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using Kind = PriceError::Kind;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr CurrentBitcoinPrices primaryPrices{.eur = 84123.4, .usd = 97000};
constexpr CurrentBitcoinPrices fallbackPrices{.eur = 84123.45, .usd = 97000.1};

std::string rates(const std::string& eur, const std::string& usd) {
  return R"({"data":{"rates":{"AED":"","EUR":)" + eur + R"(,"USD":)" + usd + "}}}";
}

std::unexpected<PriceError> failed(PriceError error) { return std::unexpected(error); }

class BitcoinPriceServiceTest : public ::testing::Test {
 protected:
  BitcoinPriceServiceTest() {
    transport.on("primary.test").respond(200, R"({"bitcoin":{"eur":84123.4,"usd":97000}})");
    transport.on("fallback.test").respond(200, rates("\"84123.45\"", "\"97000.1\""));
  }

  PriceResult current() { return runTask(executor, service.current()); }

  VirtualExecutor executor;
  ScriptedTransport transport{executor};
  BitcoinPriceService service{transport, "primary.test", "fallback.test"};
};

TEST_F(BitcoinPriceServiceTest, AsksThePrimarySourceOnlyWhenItAnswers) {
  EXPECT_EQ(current(), primaryPrices);
  ASSERT_EQ(transport.sent().size(), 1U);
  EXPECT_EQ(transport.sent()[0].request.url,
            "https://primary.test/api/v3/simple/price?ids=bitcoin&vs_currencies=eur,usd");
}

TEST_F(BitcoinPriceServiceTest, FallsBackAfterAnyFailure) {
  auto& primary = transport.on("primary.test");
  primary.respond(429).respond(200).fail(HttpFailure::cannotConnectToHost).stall().times(1);
  for (std::size_t call = 1; call <= 4; ++call) {
    EXPECT_EQ(current(), fallbackPrices) << call;
    EXPECT_EQ(transport.sentTo("https://fallback.test/v2/exchange-rates?currency=BTC"), call);
  }
  EXPECT_EQ(executor.now(), Instant(60s)) << "the source that stalled";
  EXPECT_EQ(current(), primaryPrices);
}

TEST_F(BitcoinPriceServiceTest, OnlyAGoodAnswerOfTheFallbackGivesPrices) {
  const std::string good = rates("\"1\"", "\"1\"");
  const HttpFailure badUrl = HttpFailure::invalidUrl;
  const std::pair<HttpResult, PriceResult> cases[]{
      {HttpResponse{200, good}, CurrentBitcoinPrices{1, 1}},
      {HttpResponse{299, good}, CurrentBitcoinPrices{1, 1}},
      {HttpResponse{199, good}, failed({Kind::badServerResponse})},
      {HttpResponse{300, good}, failed({Kind::badServerResponse})},
      {HttpResponse{200, rates("\"1\"", "1")}, failed({Kind::decoding})},
      {HttpResponse{200, R"({"data":{"rates":{"EUR":"1","usd":"1"}}})"},
       failed({Kind::cannotParseResponse})},
      {HttpResponse{200, rates("\" 1\"", "\"1\"")}, failed({Kind::cannotParseResponse})},
      {std::unexpected(badUrl), failed({Kind::transport, badUrl})}};
  transport.on("primary.test").respond(503);
  for (const auto& [result, outcome] : cases) {
    transport.on("fallback.test").respondBy([result](const HttpRequest&) { return result; });
    EXPECT_EQ(current(), outcome) << (result ? result->status : 0);
  }
}

TEST_F(BitcoinPriceServiceTest, ACancelledCallDoesNotGoOnToTheFallback) {
  transport.on("primary.test").neverAnswer();
  std::optional<PriceResult> outcome;
  TaskScope scope(executor);
  const TaskHandle call = scope.spawn(detail::storeResult(service.current(), outcome));
  executor.advance(5s);
  call.cancel();
  executor.runUntilIdle();
  EXPECT_EQ(outcome, std::unexpected(PriceError{Kind::cancelled}));
  EXPECT_EQ(transport.aborted(), 1U);
  transport.on("primary.test").fail(HttpFailure::cancelled);
  EXPECT_EQ(current(), std::unexpected(PriceError{Kind::cancelled}));
  EXPECT_EQ(transport.sentTo("fallback.test"), 0U);
}

TEST(PriceDocumentsTest, MatchAsAWhole) {
  using enum MemberType;
  expectMembers(decodeCurrentPrice, R"({"bitcoin":{"eur":84123.4,"usd":97000,"jpy":null}})",
                {{"eur", "84123.4", number}, {"usd", "97000", number}});
  const std::string quoted = R"({"EUR":"84123.45","AED":""})";
  expectMembers(decodeCoinbasePrice, R"({"data":{"currency":null,"rates":)" + quoted + "}}",
                {{"EUR", R"("84123.45")", text}, {"AED", R"("")", text}});
}

TEST(PriceTextTest, ReadsWhatTheCLibraryReadsAlsoUnderALocaleWithDecimalComma) {
  const CommaLocale locale;
  ASSERT_TRUE(locale.isSet());
  const std::pair<std::string, double> numbers[]{{"+84123.45", 84123.45},
                                                 {".5", 0.5},
                                                 {"0X1.8p1", 3},
                                                 {"-Infinity", -infinity},
                                                 {"1e400", infinity}};
  for (const auto& [text, value] : numbers) {
    EXPECT_EQ(parsePriceText(text), value) << text;
  }
  EXPECT_TRUE(std::isnan(parsePriceText("NAN(12)").value()));
  for (const std::string& text :
       {""s,    " 1"s, "\t1"s,    "\n1"s,       "\v1"s,      "\f1"s,    "\r1"s, "\0001"s,
        "1\0"s, "1 "s, "1\0002"s, "97,000.10"s, "97000,10"s, "1e"s,     "0x"s,  "."s,
        "+-1"s, "$1"s, "1.2.3"s,  "1_000"s,     "nan("s,     "\u00A01"s}) {
    EXPECT_EQ(parsePriceText(text), std::nullopt) << testing::PrintToString(text);
  }
}

}}  // namespace orvane::test
