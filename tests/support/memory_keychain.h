#pragma once

#include <algorithm>
#include "platform/async/completion.h"
#include "platform/async/timer.h"
#include "platform/keychain/keychain.h"

namespace orvane::test {
/// A keychain that is forgotten with the object. It has access groups and a lock with a prompt, and
/// it can be slow or out of reach.
class MemoryKeychain final : public Keychain {
 public:
  struct Item {
    std::string service;
    std::string account;
    std::string data;
    std::optional<std::string> accessGroup = {};

    bool operator==(const Item&) const = default;
  };
  enum class Condition { working, locked, gone };

  std::vector<Item> items;
  Condition condition = Condition::working;
  ExecutorClock::duration delay{};  ///< how long each call takes

  [[nodiscard]] bool isPrompting() const { return prompt_.has_value(); }
  /// The user's answer to the prompt.
  void answerPrompt(bool unlock) {
    if (unlock) { condition = Condition::working; }
    std::exchange(prompt_, std::nullopt)->resolve(unlock);
  }

  /// The service starts.
  void arrive() {
    condition = Condition::working;
    arrived_.send();
  }

  [[nodiscard]] Task<KeychainReading<KeychainItem>> copyMatching(KeychainQuery query,
                                                                 KeychainPrompt prompt) override {
    const KeychainStatus status = co_await reach(query, true, prompt);
    if (status == KeychainStatus::itemNotFound) { co_return std::unexpected(KeychainMiss::absent); }
    const auto found = std::ranges::find_if(items, matches(query));
    if (status != KeychainStatus::success || found == items.end()) {
      co_return std::unexpected(KeychainMiss::unknown);
    }
    KeychainItem item{.data = found->data, .accessGroup = found->accessGroup};
    for (auto other = std::next(found); other != items.end(); ++other) {
      const bool isCopy = matches(query)(*other) && other->accessGroup && other->data == item.data;
      if (isCopy) { item.copies.push_back(*other->accessGroup); }
    }
    co_return item;
  }
  [[nodiscard]] Task<KeychainStatus> update(KeychainQuery query, Secret data,
                                            KeychainPrompt prompt) override {
    const KeychainStatus status = co_await reach(query, true, prompt);
    const auto found = std::ranges::find_if(items, matches(query));
    if (status == KeychainStatus::success && found != items.end()) { found->data = data; }
    co_return status;
  }
  [[nodiscard]] Task<KeychainStatus> add(KeychainQuery query, Secret data,
                                         KeychainPrompt prompt) override {
    const KeychainStatus status = co_await reach(query, false, prompt);
    if (status != KeychainStatus::success) { co_return KeychainStatus::failed; }
    items.push_back({query.service, query.account, std::string(data.view()), query.accessGroup});
    co_return status;
  }
  [[nodiscard]] Task<KeychainStatus> remove(KeychainQuery query, KeychainPrompt prompt) override {
    const KeychainStatus status = co_await reach(query, true, prompt);
    if (status == KeychainStatus::success) { std::erase_if(items, matches(query)); }
    co_return status;
  }

  [[nodiscard]] Registration observeArrival(std::function<void()> listener) override {
    return arrived_.subscribe(std::move(listener));
  }

 private:
  static std::function<bool(const Item&)> matches(const KeychainQuery& query) {
    return [query](const Item& item) {
      return item.service == query.service && item.account == query.account &&
             (!query.accessGroup || item.accessGroup == query.accessGroup);
    };
  }

  /// Success when the keychain has such an item, or has none, as `exists` says, and is open.
  Task<KeychainStatus> reach(KeychainQuery query, bool exists, KeychainPrompt prompt) {
    const SleepEnd end = co_await sleepFor(delay);
    if (end != SleepEnd::elapsed || condition == Condition::gone) {
      co_return KeychainStatus::failed;
    }
    if (std::ranges::any_of(items, matches(query)) != exists) {
      co_return KeychainStatus::itemNotFound;
    }
    if (condition == Condition::working) { co_return KeychainStatus::success; }
    if (prompt == KeychainPrompt::never) { co_return KeychainStatus::failed; }
    CompletionAwaiter<bool>::Start ask = [this](const Completion<bool>& answer) {
      prompt_ = answer;
      return [this] { prompt_.reset(); };
    };
    const bool unlocked = co_await untilResolved<bool>(std::move(ask), false);
    co_return unlocked ? KeychainStatus::success : KeychainStatus::failed;
  }

  std::optional<Completion<bool>> prompt_;
  Signal<> arrived_;
};
}  // namespace orvane::test
