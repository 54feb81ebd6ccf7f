#pragma once

#include <QString>
#include <chrono>
#include <functional>
#include <utility>
#include "platform/async/executor.h"
#include "platform/async/task.h"
#include "platform/async/task_scope.h"
#include "platform/async/timer.h"
#include "platform/bus/session_bus.h"
#include "platform/keychain/keychain.h"
#include "platform/keychain/secret_items.h"

namespace orvane {
/// Stands between us and libsecret, which takes for granted that the Secret Service is there,
/// answers and stays: it waits for the bus's time-out when there is none, as long as a silent one
/// is silent, and for ever for the answer to a prompt of one that has ended. The bus outlives this,
/// and this the tasks.
class ServiceWatch {
 public:
  /// `deadline` is for everything that waits for the service and not for the user.
  ServiceWatch(SessionBus& bus, ExecutorClock::duration deadline)
      : bus_(bus), deadline_(deadline) {}

  /// Runs `question` when a service runs or the bus can start one, and cancels it when it has not
  /// ended in time. `otherwise` is the result where there is none.
  template <class T>
  Task<T> answerTo(Task<T> question, T otherwise) const {
    const TaskContext context = co_await currentContext();
    ChildTask<T> child(context, ifPresent(std::move(question), std::move(otherwise)));
    const OneShotTimer timer(*context.executor, deadline_, [&child] { child.cancel(); });
    T result = co_await child.result();
    co_return result;
  }

  /// Runs `prompt` for as long as the user takes to answer, and cancels it when the service, or the
  /// bus with it, goes away.
  template <class T>
  Task<T> answerOfUser(Task<T> prompt) const {
    const TaskContext context = co_await currentContext();
    ChildTask<T> child(context, std::move(prompt));
    const BusName service(bus_, name(), [&child](bool isOwned) {
      if (!isOwned) { child.cancel(); }
    });
    if (service.isKnown()) { child.cancel(); }  // there is no bus any more
    T result = co_await child.result();
    co_return result;
  }

  [[nodiscard]] static QString name();

 private:
  [[nodiscard]] Task<bool> isPresent() const;

  template <class T>
  Task<T> ifPresent(Task<T> question, T otherwise) const {
    const bool isThere = co_await isPresent();
    if (!isThere) { co_return otherwise; }
    T result = co_await std::move(question);
    co_return result;
  }

  SessionBus& bus_;
  ExecutorClock::duration deadline_;
};

/// The desktop's Secret Service as the keychain: one item of the service for each item, with the
/// attributes "service", "account", "synchronizable" (always "true") and, where it has one,
/// "access-group". New items go to the default collection.
///
/// A read that may prompt asks the user to unlock a matching item when all of them are locked, a
/// write when any of them is; adding asks to unlock the default collection, or to make one where
/// the user has none. Some services list nothing of a locked collection: where nothing is found,
/// what they hide is asked for and searched again. Each waits for the answer. Without a prompt, or
/// when the user refuses, what is locked or may be hidden is unknown to reads, and writes to it, or
/// to a locked or missing default collection, fail. So does adding an item that exists. Where other
/// programs have made an item exist several times, reads give the one changed last, and updates
/// change all of them.
///
/// Answers arrive through GLib's default main context, which Qt's event loop iterates on Linux; in
/// a program where nobody does, every call ends unsuccessfully at its deadline. Tasks must not
/// outlive the keychain.
class SecretServiceKeychain final : public Keychain {
 public:
  static constexpr std::chrono::milliseconds usualDeadline{5000};

  /// `deadline` is for everything that waits for the service and not for the user.
  explicit SecretServiceKeychain(SessionBus& bus, ExecutorClock::duration deadline = usualDeadline);

  [[nodiscard]] Task<KeychainReading<KeychainItem>> copyMatching(KeychainQuery query,
                                                                 KeychainPrompt prompt) override;
  [[nodiscard]] Task<KeychainStatus> update(KeychainQuery query, Secret data,
                                            KeychainPrompt prompt) override;
  [[nodiscard]] Task<KeychainStatus> add(KeychainQuery query, Secret data,
                                         KeychainPrompt prompt) override;
  [[nodiscard]] Task<KeychainStatus> remove(KeychainQuery query, KeychainPrompt prompt) override;
  [[nodiscard]] Registration observeArrival(std::function<void()> listener) override {
    return arrived_.subscribe(std::move(listener));
  }

 private:
  [[nodiscard]] Task<std::optional<SecretItems>> find(KeychainQuery query);
  [[nodiscard]] Task<std::optional<SecretObjects>> findSecretive();
  [[nodiscard]] Task<void> askToUnlock(SecretObjects locked);
  [[nodiscard]] Task<void> unlockMatching(KeychainQuery query);
  [[nodiscard]] Task<void> unlockSecretive();
  [[nodiscard]] Task<void> openDefaultCollection();

  ServiceWatch service_;
  Signal<> arrived_;
  BusName owner_;
};
}  // namespace orvane
