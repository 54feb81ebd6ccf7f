#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/async/completion.h"
#include "platform/async/timer.h"
#include "platform/keychain/keychain.h"

namespace orvane::test {

/// A keychain that is forgotten with the object. It has access groups, items that are not
/// synchronisable, and a lock with a prompt; it can be slow, broken or not there at all.
class MemoryKeychain final : public Keychain {
 public:
  struct Item {
    std::string service;
    std::string account;
    std::string data;
    std::optional<std::string> accessGroup = {};
    bool synchronizable = true;

    bool operator==(const Item&) const = default;
  };

  /// `broken` fails every call; `absent` has no service behind it.
  enum class Condition { working, locked, broken, absent };

  std::vector<Item> items;
  Condition condition = Condition::working;
  ExecutorClock::duration delay{};          ///< how long each call takes
  std::optional<std::string> defaultGroup;  ///< of items that are added without a group

  [[nodiscard]] bool isPrompting() const { return prompt_.has_value(); }
  /// The user's answer to the prompt.
  void answerPrompt(bool unlock) {
    if (unlock) { condition = Condition::working; }
    std::exchange(prompt_, std::nullopt)->resolve(unlock);
  }

  [[nodiscard]] Task<std::optional<KeychainItem>> copyMatching(KeychainQuery query,
                                                               KeychainPrompt prompt) override {
    const bool answers = co_await begin();
    const auto found = std::ranges::find_if(items, matches(query));
    if (!answers || found == items.end()) { co_return std::nullopt; }
    KeychainItem item{.data = found->data, .accessGroup = found->accessGroup};
    const bool isOpen = co_await isUnlocked(prompt);
    if (!isOpen) { co_return std::nullopt; }
    co_return item;
  }

  [[nodiscard]] Task<KeychainStatus> update(KeychainQuery query, std::string data,
                                            KeychainPrompt prompt) override {
    const bool answers = co_await begin();
    if (!answers) { co_return KeychainStatus::failed; }
    if (std::ranges::none_of(items, matches(query))) { co_return KeychainStatus::itemNotFound; }
    const bool isOpen = co_await isUnlocked(prompt);
    if (!isOpen) { co_return KeychainStatus::failed; }
    const auto found = std::ranges::find_if(items, matches(query));
    if (found != items.end()) { found->data = data; }
    co_return KeychainStatus::success;
  }

  [[nodiscard]] Task<KeychainStatus> add(KeychainQuery query, std::string data,
                                         KeychainPrompt prompt) override {
    const bool answers = co_await begin();
    if (!query.accessGroup) { query.accessGroup = defaultGroup; }
    const bool exists = std::ranges::any_of(items, matches(query));
    if (!answers || exists) { co_return KeychainStatus::failed; }
    const bool isOpen = co_await isUnlocked(prompt);
    if (!isOpen) { co_return KeychainStatus::failed; }
    items.push_back({.service = query.service,
                     .account = query.account,
                     .data = std::move(data),
                     .accessGroup = query.accessGroup});
    co_return KeychainStatus::success;
  }

  [[nodiscard]] Task<KeychainStatus> remove(KeychainQuery query, KeychainPrompt prompt) override {
    const bool answers = co_await begin();
    if (!answers) { co_return KeychainStatus::failed; }
    if (std::ranges::none_of(items, matches(query))) { co_return KeychainStatus::itemNotFound; }
    const bool isOpen = co_await isUnlocked(prompt);
    if (!isOpen) { co_return KeychainStatus::failed; }
    std::erase_if(items, matches(query));
    co_return KeychainStatus::success;
  }

 private:
  static std::function<bool(const Item&)> matches(const KeychainQuery& query) {
    return [query](const Item& item) {
      return item.synchronizable && item.service == query.service &&
             item.account == query.account &&
             (!query.accessGroup || item.accessGroup == query.accessGroup);
    };
  }

  /// True when the call may go on: the keychain is there and the caller still wants it.
  Task<bool> begin() {
    if (condition == Condition::absent) { co_return false; }
    const SleepEnd end = co_await sleepFor(delay);
    co_return end == SleepEnd::elapsed&& condition != Condition::broken;
  }

  Task<bool> isUnlocked(KeychainPrompt prompt) {
    if (condition != Condition::locked) { co_return true; }
    if (prompt == KeychainPrompt::never) { co_return false; }
    const bool unlocked = co_await askUser();
    co_return unlocked;
  }

  Task<bool> askUser() {
    CompletionAwaiter<bool>::Start start = [this](const Completion<bool>& answer) {
      prompt_ = answer;
      return [this] { prompt_.reset(); };
    };
    const bool unlocked = co_await untilResolved<bool>(std::move(start), false);
    co_return unlocked;
  }

  std::optional<Completion<bool>> prompt_;
};

}  // namespace orvane::test
