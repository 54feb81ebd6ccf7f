#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "platform/async/task_scope.h"
#include "pool/braiins_account_client.h"
#include "support/run_task.h"
#include "support/scripted_transport.h"
#include "support/virtual_executor.h"

namespace orvane::test {

inline const std::string profileBody =
    R"({"btc":{"hash_rate_unit":"Gh/s","hash_rate_60m":5,"shares_24h":1536,)"
    R"("today_reward":"0.00000001","current_balance":"0.00012345"}})";
inline const std::string workersBody = R"({"btc":{"workers":{"b":{},"a":{}}}})";
inline const std::string rewardsBody =
    R"({"btc":{"daily_rewards":[{"date":1794700800,"total_reward":"0.0001"}]}})";
inline const std::string hashrateBody =
    R"({"btc":[{"date":1794700800,"hash_rate_unit":"Gh/s","hash_rate_24h":5,)"
    R"("total_shares":2048}]})";

inline HttpResult answer(int status, std::string body = {}) {
  return HttpResponse{.status = status, .body = std::move(body)};
}

/// A client whose pool answers everything well until a test says otherwise.
class AccountClientFixture : public ::testing::Test {
 protected:
  using Stats = std::expected<BraiinsAccountStats, PoolError>;
  using Workers = std::expected<std::vector<BraiinsWorkerStatus>, PoolError>;
  using History = std::expected<std::vector<BraiinsHistoryDay>, PoolError>;

  AccountClientFixture() {
    client.token = "secret";
    transport.on("/profile/").respond(200, profileBody);
    transport.on("/workers/").respond(200, workersBody);
    transport.on("/rewards/").respond(200, rewardsBody);
    transport.on("/hash_rate_daily/").respond(200, hashrateBody);
  }

  Stats fetchStats() { return runTask(executor, client.fetchStats()); }
  Workers fetchWorkers() { return runTask(executor, client.fetchWorkers()); }
  History fetchHistory() { return runTask(executor, client.fetchHistory()); }

  /// Starts a call; its outcome is nothing while it is under way.
  template <class Result>
  TaskHandle begin(Task<Result> call, std::optional<Result>& outcome) {
    return scope.spawn(detail::storeResult(std::move(call), outcome));
  }

  /// The seconds between the test's start and each request.
  std::vector<std::int64_t> sendTimes() const {
    std::vector<std::int64_t> times;
    for (const ScriptedTransport::Sent& sent : transport.sent()) {
      times.push_back(std::chrono::duration_cast<std::chrono::seconds>(sent.at - start).count());
    }
    return times;
  }

  VirtualExecutor executor;
  Instant start = executor.now();
  ScriptedTransport transport{executor};
  BraiinsAccountClient client{executor, transport, "pool.test:8443"};
  TaskScope scope{executor};
};

}  // namespace orvane::test
