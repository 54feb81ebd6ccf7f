#include "core/keychain_items.h"
#include "store_fixture.h"
#include "support/run_task.h"

namespace orvane::test { namespace {

using testing::ElementsAre;
using Condition = MemoryKeychain::Condition;
using Items = std::vector<MemoryKeychain::Item>;

constexpr const char* service = "com.example.service";
constexpr const char* account = "token";

MemoryKeychain::Item item(std::string data, std::optional<std::string> group = sharedGroup) {
  return {service, account, std::move(data), std::move(group)};
}

Task<void> readAndIgnore(KeychainItems& items, KeychainPrompt prompt) {
  (void)co_await items.readItem(service, account, prompt);
}

class KeychainItemsTest : public testing::Test {
 protected:
  KeychainReading<Secret> readingOf(KeychainItems& items) {
    auto text = runTask(executor, items.readItem(service, account, KeychainPrompt::never));
    settle();
    return text;
  }
  /// The text; what is known to be absent is no text.
  std::optional<std::string> read(KeychainItems& items) {
    const KeychainReading<Secret> text = readingOf(items);
    EXPECT_TRUE(text || text.error() == KeychainMiss::absent);
    return text ? std::optional<std::string>(text->view()) : std::nullopt;
  }
  void save(KeychainItems& items, std::string text) {
    items.saveItem(std::move(text), service, account);
    settle();
  }
  void settle() { executor.advance(10s); }

  VirtualExecutor executor;
  MemoryKeychain keychain;
  KeychainItems shared{executor, keychain, sharedGroup};
  KeychainItems withoutGroup{executor, keychain, std::nullopt};
  TaskScope tasks{executor};
};

TEST(SharedAccessGroupTest, IsTheFirstOneWithTheSharedSuffix) {
  EXPECT_EQ(sharedAccessGroup({"TEAM.own", "com.quorvex.hashwick.shared"}), std::nullopt);
  EXPECT_EQ(sharedAccessGroup({sharedGroup + std::string(".old")}), std::nullopt);
  EXPECT_EQ(sharedAccessGroup({"TEAM.own", sharedGroup, "B.com.quorvex.hashwick.shared"}),
            sharedGroup);
}

TEST_F(KeychainItemsTest, ASaveAddsReplacesOrRemovesUnlessTheUserLeavesItLocked) {
  const auto own = item("own", "TEAM.own");
  struct Case {
    const char* name;
    Items before;
    KeychainItems& saver;
    std::string text;
    Items after;
    std::optional<bool> unlocks = {};  ///< the keychain is locked, and the user does or does not
  };
  const std::vector<Case> cases{
      {"adds", {own}, shared, "new", {own, item("new")}},
      {"adds where the system puts it", {}, withoutGroup, "new", {item("new", std::nullopt)}},
      {"replaces", {item("old")}, shared, "new", {item("new")}},
      {"removes from every group", {item("old"), own}, shared, "", {}},
      {"refused", {item("old")}, shared, "new", {item("old")}, false},
      {"removal refused", {item("old")}, shared, "", {item("old")}, false},
      {"unlocked and replaced", {item("old")}, shared, "new", {item("new")}, true},
      {"unlocked and added", {}, shared, "new", {item("new")}, true},
  };
  for (const Case& test : cases) {
    SCOPED_TRACE(test.name);
    keychain.condition = test.unlocks ? Condition::locked : Condition::working;
    keychain.items = test.before;
    save(test.saver, test.text);
    ASSERT_EQ(keychain.isPrompting(), test.unlocks.has_value());
    EXPECT_EQ(test.saver.writesFinished(), !test.unlocks);
    if (test.unlocks) { keychain.answerPrompt(*test.unlocks); }
    settle();
    EXPECT_TRUE(!keychain.isPrompting() && test.saver.writesFinished());
    EXPECT_EQ(keychain.items, test.after);
  }
}

TEST_F(KeychainItemsTest, ReadMovesOnlyATextOfAnotherGroupAndOnlyIntoASharedOne) {
  const auto bystander = item("another", "TEAM.other");
  const auto bytes = item("\xff\xfe", "TEAM.own");
  struct Case {
    const char* name;
    Items before;
    KeychainItems& reader;
    std::optional<std::string> text;
    Items after;
  };
  const std::vector<Case> cases{
      {"moves one", {item("a", "TEAM.own"), bystander}, shared, "a", {bystander, item("a")}},
      {"over an older one", {item("b", "TEAM.own"), item("a")}, shared, "b", {item("b")}},
      {"completes a move", {item("a", "TEAM.own"), item("a")}, shared, "a", {item("a")}},
      {"completes it later", {item("a"), item("a", "TEAM.own")}, shared, "a", {item("a")}},
      {"no group", {item("a", std::nullopt)}, shared, "a", {item("a", std::nullopt)}},
      {"no shared group", {item("a", "TEAM.own")}, withoutGroup, "a", {item("a", "TEAM.own")}},
      {"no text", {bytes}, shared, std::nullopt, {bytes}},
  };
  for (const Case& test : cases) {
    keychain.items = test.before;
    EXPECT_EQ(read(test.reader), test.text) << test.name;
    EXPECT_EQ(keychain.items, test.after) << test.name;
  }
}

TEST_F(KeychainItemsTest, AMoveAsksNobodyWhenTheKeychainIsLockedInItsMiddle) {
  keychain.items = {item("text", "TEAM.own")};
  keychain.delay = 1s;
  tasks.spawn(readAndIgnore(shared, KeychainPrompt::never));
  executor.advance(1500ms);
  keychain.condition = Condition::locked;
  settle();
  EXPECT_TRUE(!keychain.isPrompting() && shared.writesFinished());
}

TEST_F(KeychainItemsTest, AReadSeesTheSavesBeforeIt) {
  keychain.delay = 1s;
  shared.saveItem("first", service, account);
  shared.saveItem("second", service, account);
  EXPECT_EQ(runTask(executor, shared.readItem(service, account, KeychainPrompt::never, 500ms)),
            std::unexpected(KeychainMiss::unknown))
      << "without the patience for it";
  EXPECT_EQ(read(shared), "second");
}

TEST_F(KeychainItemsTest, AMoveOutlivesTheTaskThatStartedItAndTheItemIsAlwaysSomewhere) {
  keychain.delay = 1s;
  keychain.items = {item("text", "TEAM.own")};
  const TaskHandle reading = tasks.spawn(readAndIgnore(shared, KeychainPrompt::never));
  executor.advance(3s);
  reading.cancel();
  EXPECT_THAT(keychain.items, ElementsAre(item("text", "TEAM.own"), item("text")));
  EXPECT_FALSE(shared.writesFinished());
  EXPECT_EQ(read(shared), "text");
  EXPECT_THAT(keychain.items, ElementsAre(item("text")));
}

TEST_F(KeychainItemsTest, WhatCannotBePutIntoTheSharedGroupStaysWhereItIs) {
  keychain.delay = 1s;
  keychain.items = {item("text", "TEAM.own")};
  tasks.spawn(readAndIgnore(shared, KeychainPrompt::never));
  executor.advance(1500ms);
  keychain.condition = Condition::gone;
  executor.advance(1s);
  keychain.condition = Condition::working;
  settle();
  EXPECT_THAT(keychain.items, ElementsAre(item("text", "TEAM.own")));
  EXPECT_EQ(read(shared), "text");
  EXPECT_THAT(keychain.items, ElementsAre(item("text")));
}

TEST_F(KeychainItemsTest, WhatIsLockedOrOutOfReachIsNotAbsent) {
  EXPECT_EQ(readingOf(shared).error(), KeychainMiss::absent);
  keychain.items = {item("text")};
  for (const Condition condition : {Condition::locked, Condition::gone}) {
    keychain.condition = condition;
    EXPECT_EQ(readingOf(shared).error(), KeychainMiss::unknown);
  }
}

TEST_F(KeychainItemsTest, ACancelledReadLetsTheNextCallThrough) {
  keychain.condition = Condition::locked;
  keychain.items = {item("text")};
  const TaskHandle prompting = tasks.spawn(readAndIgnore(shared, KeychainPrompt::allowed));
  executor.runUntilIdle();
  prompting.cancel();
  EXPECT_EQ(readingOf(shared).error(), KeychainMiss::unknown);
  EXPECT_TRUE(prompting.finished() && !keychain.isPrompting());
}

}}  // namespace orvane::test
