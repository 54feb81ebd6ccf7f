#include "core/keychain_items.h"

#include <gmock/gmock.h>

#include "support/memory_keychain.h"
#include "support/run_task.h"

namespace orvane {
namespace {

using std::chrono::seconds;
using test::MemoryKeychain;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* service = "com.example.service";
constexpr const char* account = "token";
constexpr const char* sharedGroup = "TEAM.com.quorvex.hashwick.shared";

MemoryKeychain::Item item(std::string data, std::optional<std::string> group = sharedGroup) {
  return {.service = service,
          .account = account,
          .data = std::move(data),
          .accessGroup = std::move(group)};
}

class KeychainItemsTest : public testing::Test {
 protected:
  std::optional<std::string> read(KeychainItems& items,
                                  KeychainPrompt prompt = KeychainPrompt::never) {
    auto text = test::runTask(executor, items.readItem(service, account, prompt));
    settle();
    return text;
  }
  void save(KeychainItems& items, std::string text) {
    items.saveItem(std::move(text), service, account);
    settle();
  }
  void settle() { executor.advance(seconds(10)); }

  test::VirtualExecutor executor;
  MemoryKeychain keychain;
  KeychainItems shared{executor, keychain, sharedGroup};
  KeychainItems withoutGroup{executor, keychain, std::nullopt};
};

TEST(SharedAccessGroupTest, IsTheFirstOneWithTheSharedSuffix) {
  EXPECT_EQ(sharedAccessGroup({}), std::nullopt);
  EXPECT_EQ(sharedAccessGroup({"TEAM.own", "com.quorvex.hashwick.shared"}), std::nullopt);
  EXPECT_EQ(sharedAccessGroup({sharedGroup + std::string(".old")}), std::nullopt);
  EXPECT_EQ(sharedAccessGroup({"TEAM.own", sharedGroup, "B.com.quorvex.hashwick.shared"}),
            sharedGroup);
}

TEST_F(KeychainItemsTest, SaveAddsReplacesAndWithNothingRemovesFromEveryGroup) {
  save(shared, "first");
  EXPECT_THAT(keychain.items, ElementsAre(item("first")));
  save(shared, "second");
  EXPECT_THAT(keychain.items, ElementsAre(item("second")));
  EXPECT_EQ(read(shared), "second");
  keychain.items.push_back(item("b", "TEAM.own"));
  save(shared, "");
  EXPECT_THAT(keychain.items, IsEmpty());
  keychain.defaultGroup = "TEAM.own";
  save(withoutGroup, "text");
  EXPECT_THAT(keychain.items, ElementsAre(item("text", "TEAM.own")));
}

TEST_F(KeychainItemsTest, ReadMovesOnlyATextOfAnotherGroupAndOnlyIntoASharedOne) {
  using Items = std::vector<MemoryKeychain::Item>;
  const auto bystander = item("another", "TEAM.other");
  const auto bytes = item("\xff\xfe", "TEAM.own");
  auto local = item("text");
  local.synchronizable = false;
  struct Case {
    Items before;
    KeychainItems& reader;
    std::optional<std::string> text;
    Items after;
  };
  const std::vector<Case> cases{
      {{item("text", "TEAM.own"), bystander}, shared, "text", {bystander, item("text")}},
      {{item("text", std::nullopt)}, shared, "text", {item("text", std::nullopt)}},
      {{item("text", "TEAM.own")}, withoutGroup, "text", {item("text", "TEAM.own")}},
      {{local}, shared, std::nullopt, {local}},
      {{bytes}, shared, std::nullopt, {bytes}},
  };
  for (const Case& test : cases) {
    keychain.items = test.before;
    EXPECT_EQ(read(test.reader), test.text);
    EXPECT_EQ(keychain.items, test.after);
  }
}

TEST_F(KeychainItemsTest, FailuresAreSilent) {
  for (const auto condition :
       {MemoryKeychain::Condition::broken, MemoryKeychain::Condition::absent}) {
    keychain.items = {item("text")};
    keychain.condition = condition;
    EXPECT_EQ(read(shared), std::nullopt);
    save(shared, "other");
    save(shared, "");
    EXPECT_THAT(keychain.items, ElementsAre(item("text")));
    EXPECT_TRUE(shared.writesFinished());
  }
}

TEST_F(KeychainItemsTest, ASaveIsTheUsersAndAsksToUnlock) {
  keychain.condition = MemoryKeychain::Condition::locked;
  keychain.items = {item("text")};
  for (const std::string text : {"refused", ""}) {
    save(shared, text);
    ASSERT_TRUE(keychain.isPrompting());
    EXPECT_FALSE(shared.writesFinished());
    keychain.answerPrompt(false);
    settle();
    EXPECT_FALSE(keychain.isPrompting()) << "one question is enough";
    EXPECT_TRUE(shared.writesFinished());
    EXPECT_THAT(keychain.items, ElementsAre(item("text")));
  }
  for (const auto& before : {keychain.items, decltype(keychain.items){}}) {
    keychain.condition = MemoryKeychain::Condition::locked;
    keychain.items = before;
    save(shared, "allowed");
    keychain.answerPrompt(true);
    settle();
    EXPECT_THAT(keychain.items, ElementsAre(item("allowed")));
  }
}

Task<void> readAndIgnore(KeychainItems& items) {
  co_await items.readItem(service, account, KeychainPrompt::never);
}

TEST_F(KeychainItemsTest, AMoveAsksNobodyWhenTheKeychainIsLockedInItsMiddle) {
  keychain.items = {item("text", "TEAM.own")};
  keychain.delay = seconds(1);
  TaskScope tasks(executor);
  tasks.spawn(readAndIgnore(shared));
  executor.advance(std::chrono::milliseconds(1500));
  keychain.condition = MemoryKeychain::Condition::locked;
  settle();
  EXPECT_FALSE(keychain.isPrompting());
  EXPECT_TRUE(shared.writesFinished());
}

TEST_F(KeychainItemsTest, AReadSeesTheSavesBeforeIt) {
  keychain.delay = seconds(1);
  shared.saveItem("first", service, account);
  shared.saveItem("second", service, account);
  EXPECT_FALSE(shared.writesFinished());
  EXPECT_EQ(read(shared), "second");
  EXPECT_TRUE(shared.writesFinished());
}

// Between its two steps a move has taken the item away and not yet put it back.
TEST_F(KeychainItemsTest, AMoveOutlivesTheTaskThatStartedIt) {
  keychain.delay = seconds(1);
  keychain.items = {item("text", "TEAM.own")};
  {
    TaskScope tasks(executor);
    const TaskHandle reading = tasks.spawn(readAndIgnore(shared));
    executor.advance(seconds(2));
    reading.cancel();
    EXPECT_THAT(keychain.items, IsEmpty());
    EXPECT_FALSE(shared.writesFinished());
  }
  EXPECT_EQ(read(shared), "text");
  EXPECT_THAT(keychain.items, ElementsAre(item("text")));
  EXPECT_TRUE(shared.writesFinished());
}

TEST_F(KeychainItemsTest, ACancelledReadLetsTheNextCallThrough) {
  keychain.condition = MemoryKeychain::Condition::locked;
  keychain.items = {item("text")};
  TaskScope tasks(executor);
  const TaskHandle prompting = tasks.spawn([](KeychainItems& items) -> Task<void> {
    co_await items.readItem(service, account, KeychainPrompt::allowed);
  }(shared));
  executor.runUntilIdle();
  EXPECT_TRUE(keychain.isPrompting());
  prompting.cancel();
  EXPECT_EQ(read(shared), std::nullopt);
  EXPECT_TRUE(prompting.finished());
  EXPECT_FALSE(keychain.isPrompting());
}

}  // namespace
}  // namespace orvane
