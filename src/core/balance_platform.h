#pragma once

#include <string>
#include <vector>
#include "platform/async/executor.h"
#include "platform/defaults/user_defaults.h"
#include "platform/http/http_transport.h"
#include "platform/keychain/keychain.h"
#include "platform/network/network_watch.h"
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
  NetworkWatch& network;
  const LocaleFormat& format;
  ServiceHosts hosts;
  std::vector<std::string> accessGroups = {};  ///< the keychain groups this build may use
};
}  // namespace orvane
