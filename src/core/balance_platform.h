#pragma once

#include <string>
#include <vector>

#include "platform/async/executor.h"
#include "platform/async/task.h"
#include "platform/defaults/user_defaults.h"
#include "platform/http/http_transport.h"
#include "platform/keychain/keychain.h"
#include "platform/notifications/notification_center.h"
#include "platform/text/locale_format.h"

namespace orvane {

/// The remote services that the store reads, each "host[:port]".
struct ServiceHosts {
  std::string pool;
  std::string explorer;
  std::string price;
  std::string fallbackPrice;
};

/// What the store works with; all of it outlives the store.
struct BalancePlatform {
  Executor& executor;
  HttpTransport& transport;
  UserDefaults& defaults;
  Keychain& keychain;
  NotificationCenter& notifications;
  const LocaleFormat& format;
  ServiceHosts hosts;
  std::vector<std::string> accessGroups = {};  ///< the keychain groups this build may use
};

/// Whether a client's result is of no use any more, because the task that asked for it has been
/// cancelled: before the request ended, or between its end and now. Nothing of it is shown.
template <class Result>
[[nodiscard]] bool isCancelled(const TaskContext& context, const Result& result) {
  if (context.stop.stop_requested()) { return true; }
  return !result && result.error().kind == Result::error_type::Kind::cancelled;
}

}  // namespace orvane
