#pragma once

#include <chrono>

#include "platform/async/executor.h"
#include "platform/bus/session_bus.h"
#include "platform/keychain/keychain.h"
#include "platform/keychain/secret_items.h"
#include "platform/keychain/service_watch.h"

namespace orvane {

/// The desktop's Secret Service as the keychain: one item of the service for each item, with the
/// attributes "service", "account", "synchronizable" (always "true") and, where it has one,
/// "access-group". New items go to the default collection.
///
/// A read that may prompt asks the user to unlock a matching item when all of them are locked, a
/// write when any of them is; adding asks to unlock the default collection, or to make one where
/// the user has none. Each waits for the answer. Without a prompt locked items count as absent for
/// reads, and writes to them, or to a locked or missing default collection, fail. So does adding an
/// item that exists. Where other programs have made an item exist several times, reads give the one
/// changed last, and updates change all of them.
///
/// Answers arrive through GLib's default main context, which Qt's event loop iterates on Linux; in
/// a program where nobody does, every call ends unsuccessfully at its deadline. Tasks must not
/// outlive the keychain.
class SecretServiceKeychain final : public Keychain {
 public:
  static constexpr std::chrono::milliseconds usualDeadline{5000};

  /// `deadline` is for everything that waits for the service and not for the user.
  explicit SecretServiceKeychain(SessionBus& bus, ExecutorClock::duration deadline = usualDeadline)
      : service_(bus, deadline) {}

  [[nodiscard]] Task<std::optional<KeychainItem>> copyMatching(KeychainQuery query,
                                                               KeychainPrompt prompt) override;
  [[nodiscard]] Task<KeychainStatus> update(KeychainQuery query, std::string data,
                                            KeychainPrompt prompt) override;
  [[nodiscard]] Task<KeychainStatus> add(KeychainQuery query, std::string data,
                                         KeychainPrompt prompt) override;
  [[nodiscard]] Task<KeychainStatus> remove(KeychainQuery query, KeychainPrompt prompt) override;

 private:
  [[nodiscard]] Task<std::optional<SecretItems>> find(KeychainQuery query);
  [[nodiscard]] Task<void> askToUnlock(SecretObjects locked);
  [[nodiscard]] Task<void> unlockMatching(KeychainQuery query);
  [[nodiscard]] Task<void> openDefaultCollection();

  ServiceWatch service_;
};

}  // namespace orvane
