#include "pool/braiins_account_client.h"

#include <optional>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "platform/async/timer.h"
#include "pool/account.h"
#include "pool/history.h"
#include "pool/pool_documents.h"

namespace orvane {

namespace {

using Kind = PoolError::Kind;

constexpr std::chrono::seconds idleTimeout{15};

std::unexpected<PoolError> failure(Kind kind) { return std::unexpected(PoolError{.kind = kind}); }

// A line break or NUL would end the header's value, and what follows could pass for another header.
bool isSendable(std::string_view token) {
  using namespace std::string_view_literals;
  return !token.empty() && token.find_first_of("\r\n\0"sv) == std::string_view::npos;
}

std::string utcDateText(WallTime time) {
  const std::chrono::year_month_day date(std::chrono::floor<std::chrono::days>(time));
  return fmt::format("{:04}-{:02}-{:02}", static_cast<int>(date.year()),
                     static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
}

PoolError poolError(HttpFailure httpFailure) {
  switch (httpFailure) {
    case HttpFailure::cancelled:
      return {.kind = Kind::cancelled};
    case HttpFailure::invalidUrl:
      return {.kind = Kind::badURL};
    case HttpFailure::notConnectedToInternet:
    case HttpFailure::networkConnectionLost:
    case HttpFailure::cannotFindHost:
    case HttpFailure::cannotConnectToHost:
    case HttpFailure::timedOut:
    case HttpFailure::other:
      break;
  }
  return {.kind = Kind::transport, .failure = httpFailure};
}

std::expected<std::string, PoolError> bodyOf(HttpResult result) {
  if (!result) { return std::unexpected(poolError(result.error())); }
  if (result->status == 401 || result->status == 403) {
    return failure(Kind::userAuthenticationRequired);
  }
  if (!result->isSuccess()) { return failure(Kind::badServerResponse); }
  return std::move(result->body);
}

}  // namespace

BraiinsAccountClient::BraiinsAccountClient(Executor& executor, HttpTransport& transport,
                                           std::string poolHost)
    : executor_(executor), transport_(transport), poolBaseURL_("https://" + std::move(poolHost)) {}

Task<std::expected<BraiinsAccountStats, PoolError>> BraiinsAccountClient::fetchStats() {
  const std::expected<std::string, PoolError> body =
      co_await fetchPoolData(poolBaseURL_ + "/accounts/profile/json/btc/");
  if (!body) { co_return std::unexpected(body.error()); }
  const std::optional<BraiinsProfileResponse> response = decodeProfile(*body);
  if (!response) { co_return failure(Kind::decoding); }
  co_return accountStats(*response);
}

Task<std::expected<std::vector<BraiinsWorkerStatus>, PoolError>>
BraiinsAccountClient::fetchWorkers() {
  const std::expected<std::string, PoolError> body =
      co_await fetchPoolData(poolBaseURL_ + "/accounts/workers/json/btc/");
  if (!body) { co_return std::unexpected(body.error()); }
  std::optional<BraiinsWorkersResponse> response = decodeWorkers(*body);
  if (!response) { co_return failure(Kind::decoding); }
  co_return workerStatuses(std::move(*response));
}

Task<std::expected<std::vector<BraiinsHistoryDay>, PoolError>>
BraiinsAccountClient::fetchHistory() {
  const std::string today = utcDateText(executor_.wallClock());
  const std::expected<std::string, PoolError> rewards = co_await fetchPoolData(
      poolBaseURL_ + "/accounts/rewards/json/btc?from=2000-01-01&to=" + today);
  if (!rewards) { co_return std::unexpected(rewards.error()); }
  const std::expected<std::string, PoolError> hashrate =
      co_await fetchPoolData(poolBaseURL_ + "/accounts/hash_rate_daily/json/group/btc");
  std::optional<std::string_view> hashrateBody;
  if (hashrate) { hashrateBody = *hashrate; }
  co_return buildHistoryDays(*rewards, hashrateBody);
}

Task<std::expected<std::string, PoolError>> BraiinsAccountClient::fetchPoolData(std::string url) {
  if (!isSendable(token)) { co_return failure(Kind::userAuthenticationRequired); }
  const std::expected<void, PoolError> claimed = co_await claimSlot();
  if (!claimed) { co_return std::unexpected(claimed.error()); }
  HttpRequest request{.url = std::move(url), .idleTimeout = idleTimeout};
  request.headers.push_back({.name = "Pool-Auth-Token", .value = token});
  HttpResult result = co_await transport_.get(std::move(request));
  co_return bodyOf(std::move(result));
}

// Calls hold the mutex only while they wait, so the next one begins to wait as soon as this one's
// request leaves.
Task<std::expected<void, PoolError>> BraiinsAccountClient::claimSlot() {
  const TaskContext context = co_await currentContext();
  const std::optional<AsyncMutex::Lock> turn = co_await slot_.lock();
  if (!turn) { co_return failure(Kind::cancelled); }
  const SleepEnd end = co_await sleepUntil(nextRequestAt_);
  if (end == SleepEnd::cancelled || context.stop.stop_requested()) {
    co_return failure(Kind::cancelled);
  }
  // The token may have been taken away during the wait.
  if (!isSendable(token)) { co_return failure(Kind::userAuthenticationRequired); }
  nextRequestAt_ = executor_.now() + poolRequestGap;
  co_return std::expected<void, PoolError>();
}

}  // namespace orvane
