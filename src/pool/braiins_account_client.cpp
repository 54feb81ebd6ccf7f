#include "pool/braiins_account_client.h"
#include <optional>
#include <string_view>
#include <utility>
#include "platform/async/timer.h"
#include "pool/pool_documents.h"

namespace orvane {
namespace {
using Kind = PoolError::Kind;

constexpr std::chrono::seconds idleTimeout{15};
constexpr int mostRedirects = 5;

std::unexpected<PoolError> failure(Kind kind) { return std::unexpected(PoolError{.kind = kind}); }

// A line break or NUL would end the header's value, and what follows could pass for another header.
bool isSendable(std::string_view token) {
  using namespace std::string_view_literals;
  return !token.empty() && token.find_first_of("\r\n\0"sv) == std::string_view::npos;
}

}  // namespace

BraiinsAccountClient::BraiinsAccountClient(Executor& executor, HttpTransport& transport,
                                           std::string poolHost)
    : executor_(executor), transport_(transport), poolBaseURL_("https://" + std::move(poolHost)) {}

Task<PoolResult<BraiinsAccountStats>> BraiinsAccountClient::fetchStats() {
  const PoolResult<std::string> body =
      co_await fetchPoolData("/accounts/profile/json/btc/", Urgency::figures);
  const PoolResult<BraiinsProfileResponse> response = decoded(body, &decodeProfile);
  if (!response) { co_return std::unexpected(response.error()); }
  co_return accountStats(*response);
}

Task<PoolResult<std::vector<BraiinsWorkerStatus>>> BraiinsAccountClient::fetchWorkers() {
  const PoolResult<std::string> body =
      co_await fetchPoolData("/accounts/workers/json/btc/", Urgency::figures);
  PoolResult<BraiinsWorkersResponse> response = decoded(body, &decodeWorkers);
  if (!response) { co_return std::unexpected(response.error()); }
  co_return workerStatuses(*std::move(response));
}

Task<PoolResult<std::vector<BraiinsHistoryDay>>> BraiinsAccountClient::fetchHistory() {
  const std::string today =
      utcDateText(std::chrono::floor<std::chrono::seconds>(executor_.wallClock()));
  const PoolResult<std::string> rewards = co_await fetchPoolData(
      "/accounts/rewards/json/btc?from=2000-01-01&to=" + today, Urgency::history);
  if (!rewards) { co_return std::unexpected(rewards.error()); }
  const PoolResult<std::string> hashrate =
      co_await fetchPoolData("/accounts/hash_rate_daily/json/group/btc", Urgency::history);
  std::optional<std::string_view> hashrateBody;
  if (hashrate) { hashrateBody = *hashrate; }
  std::optional<std::vector<BraiinsHistoryDay>> days = buildHistoryDays(*rewards, hashrateBody);
  if (!days) { co_return failure(Kind::decoding); }
  co_return *std::move(days);
}

Task<PoolResult<std::string>> BraiinsAccountClient::fetchPoolData(std::string path,
                                                                  Urgency urgency) {
  if (!isSendable(token)) { co_return failure(Kind::userAuthenticationRequired); }
  std::string url = poolBaseURL_ + path;
  // A redirect leads to one more request, which takes its turn like any other.
  for (int redirects = 0;; ++redirects) {
    const PoolResult<void> claimed = co_await claimSlot(urgency);
    if (!claimed) { co_return std::unexpected(claimed.error()); }
    HttpRequest request{.url = url, .idleTimeout = idleTimeout};
    request.headers.push_back({.name = "Pool-Auth-Token", .value = token});
    HttpResult result = co_await transport_.get(std::move(request));
    if (result && (result->status == 401 || result->status == 403)) {
      co_return failure(Kind::userAuthenticationRequired);
    }
    if (!result || result->redirect.empty() || redirects == mostRedirects) {
      co_return bodyOf<PoolError>(std::move(result));
    }
    url = std::move(result->redirect);
  }
}

Task<PoolResult<void>> BraiinsAccountClient::claimSlot(Urgency urgency) {
  const TaskContext context = co_await currentContext();
  for (;;) {
    if (urgency == Urgency::history) { co_await sleepUntil(nextRequestAt_); }
    const std::optional<AsyncMutex::Lock> turn = co_await slot_.lock();
    if (!turn) { co_return failure(Kind::cancelled); }
    if (urgency == Urgency::history && executor_.now() < nextRequestAt_) { continue; }
    const SleepEnd end = co_await sleepUntil(nextRequestAt_);
    if (end == SleepEnd::cancelled || context.stop.stop_requested()) {
      co_return failure(Kind::cancelled);
    }
    // The token may have been taken away during the wait.
    if (!isSendable(token)) { co_return failure(Kind::userAuthenticationRequired); }
    nextRequestAt_ = executor_.now() + poolRequestGap;
    co_return PoolResult<void>();
  }
}
}  // namespace orvane
