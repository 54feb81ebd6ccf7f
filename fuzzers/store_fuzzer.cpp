// The way of the data as a whole: whatever the services answer, the program shows well-formed
// texts, keeps its pace, and never forgets a payment that it told of. The lines of the input are
// profile, workers, rewards, daily hash rates, totals, transactions, tip height and prices.

#include "core/display_texts.h"
#include "fuzzer.h"
#include "platform/text/unicode.h"
#include "shell/view_models/account_tables.h"
#include "shell/view_models/window_contents.h"
#include "support/store_on_fakes.h"

namespace orvane {
namespace {
using namespace std::chrono_literals;

void requireReadable(const std::string& text) { require(isValidUtf8(text)); }

void requireReadable(const std::vector<Metric>& metrics) {
  for (const Metric& metric : metrics) {
    requireReadable(metric.value + metric.fiatValue);
  }
}

void requireReadableCards(const test::StoreOnFakes& shown) {
  const PoolCard pool = poolCard(shown.state(), shown.format);
  requireReadable(pool.balance.text + pool.balance.fiatValue + pool.status.text);
  requireReadable(pool.metrics);
  const AddressCard address = addressCard(shown.state(), shown.format);
  requireReadable(address.balance.text + address.balance.fiatValue + address.status.text);
  requireReadable(address.metrics);
  for (const BlockRewardLine& reward : address.blockRewards) {
    requireReadable(reward.text);
  }
  requireReadable(shown.store->menuBarTitle());
}

void requireReadableTables(const test::StoreOnFakes& shown) {
  for (const BraiinsWorkerStatus& worker : shown.state().workers) {
    requireReadable(workerName(worker) + workerFullName(worker) +
                    lastShareText(shown.format, worker.lastShare) +
                    hashRateText(worker.hashRate5m) + hashRateText(worker.hashRate24h));
  }
  for (const BraiinsHistoryDay& day : shown.state().history) {
    requireReadable(historyDateText(day, shown.format) + historyHashRateText(day) +
                    historySharesText(day, shown.format) + historyRewardText(day, shown.format));
  }
  const BraiinsHistorySummary summary(shown.state().history);
  requireReadable(historySummaryMetrics(summary, shown.format, {}));
}

void answer(test::StoreOnFakes& services, const std::string& url, std::string_view body) {
  services.transport.on(url).respond(200, std::string(body));
}

void answerByLines(test::StoreOnFakes& services, std::string_view lines) {
  const std::string pool = "https://pool.test/accounts/";
  const std::string explorer = "https://explorer.test/api/";
  for (const char* path : {"profile/", "workers/", "rewards/", "hash_rate_daily/"}) {
    answer(services, pool + path, takeLine(lines));
  }
  answer(services, explorer + "address/", takeLine(lines));
  services.transport.onEnding("/txs").respond(200, std::string(takeLine(lines)));
  answer(services, explorer + "blocks/tip/height", takeLine(lines));
  answer(services, "https://price.test/", takeLine(lines));
}

void requirePace(const test::ScriptedTransport& transport) {
  std::optional<Instant> last;
  for (const test::ScriptedTransport::Sent& sent : transport.sent()) {
    if (!sent.request.url.starts_with("https://pool.test/")) { continue; }
    require(!last || sent.at - *last >= BraiinsAccountClient::poolRequestGap);
    last = sent.at;
  }
}
}  // namespace

void tryInput(std::string_view lines) {
  test::StoreOnFakes services;
  services.storeToken("token");
  services.storePayoutAddress(test::firstAddress);
  services.start();
  services.store->loadHistory();
  services.executor.advance(4min);
  const std::size_t told = services.notifications.received().size();
  answerByLines(services, lines);
  services.store->loadHistory();
  services.executor.advance(11min);
  requireReadableCards(services);
  requireReadableTables(services);
  const std::size_t toldOfAll = services.notifications.received().size();
  require(toldOfAll - told <= 100);
  services.executor.advance(11min);  // the same again is nothing new
  require(services.notifications.received().size() == toldOfAll);
  requirePace(services.transport);
}
}  // namespace orvane
