#include <ctime>
#include "platform/eventloop/real_time.h"
#include "platform/keychain/secret_service_keychain.h"
#include "support/memory_keychain.h"
#include "support/run_task.h"
#include "support/session_tools.h"

namespace orvane::test { namespace {

enum class Subject { service, memory };

/// What callers may rely on, whichever keychain they are given: the desktop's own service, in a
/// session of the test's, or the stand-in that other tests build on.
class KeychainTest : public testing::TestWithParam<Subject> {
 protected:
  template <class T>
  T run(Task<T> task) {
    return GetParam() == Subject::service ? realTime.run(std::move(task))
                                          : runTask(virtualTime, std::move(task));
  }
  KeychainReading<KeychainItem> read(const KeychainQuery& query) {
    return run(keychain.copyMatching(query, never));
  }
  KeychainStatus add(const KeychainQuery& query, const std::string& data) {
    return run(keychain.add(query, data, never));
  }
  KeychainStatus update(const KeychainQuery& query, const std::string& data) {
    return run(keychain.update(query, data, never));
  }
  KeychainStatus remove(const KeychainQuery& query) { return run(keychain.remove(query, never)); }
  [[nodiscard]] KeychainQuery inGroup(const char* group) const {
    return {.service = token.service, .account = token.account, .accessGroup = group};
  }

  RealTime realTime;
  SessionBus bus{*realTime.executor};
  SecretServiceKeychain service{bus};
  VirtualExecutor virtualTime;
  MemoryKeychain memory;
  Keychain& keychain = GetParam() == Subject::service ? static_cast<Keychain&>(service) : memory;
  // The service keeps what earlier tests left.
  KeychainQuery token{.service = testing::UnitTest::GetInstance()->current_test_info()->name(),
                      .account = "token"};
  static constexpr auto never = KeychainPrompt::never;
};

INSTANTIATE_TEST_SUITE_P(Service, KeychainTest, testing::Values(Subject::service));
INSTANTIATE_TEST_SUITE_P(Memory, KeychainTest, testing::Values(Subject::memory));

TEST_P(KeychainTest, AnItemIsFoundByServiceAndAccountTogetherAndItsDataAreBytes) {
  EXPECT_EQ(read(token).error(), KeychainMiss::absent);
  const std::string bytes("\xff\0\xc3(\n", 5);
  EXPECT_EQ(add(token, bytes), KeychainStatus::success);
  const auto item = read(token);
  ASSERT_TRUE(item);
  EXPECT_EQ(item->data, bytes);
  EXPECT_EQ(item->accessGroup, std::nullopt);
  EXPECT_FALSE(read({.service = token.service, .account = "other"}));
  EXPECT_FALSE(read({.service = "other", .account = token.account}));
}

TEST_P(KeychainTest, UpdateReplacesAndNeverAdds) {
  EXPECT_EQ(update(token, "new"), KeychainStatus::itemNotFound);
  EXPECT_FALSE(read(token));
  add(inGroup("a"), "old");
  EXPECT_EQ(update(inGroup("b"), "new"), KeychainStatus::itemNotFound);
  EXPECT_EQ(update(token, "new"), KeychainStatus::success);
  EXPECT_EQ(read(token)->data, "new");
  EXPECT_EQ(read(token)->accessGroup, "a") << "the group is kept";
}

TEST_P(KeychainTest, AddingWhatExistsChangesNothing) {
  add(inGroup("a"), "first");
  EXPECT_EQ(add(inGroup("a"), "second"), KeychainStatus::failed);
  EXPECT_EQ(read(token)->data, "first");
  EXPECT_EQ(add(inGroup("b"), "of another group"), KeychainStatus::success);
  EXPECT_EQ(read(inGroup("a"))->data, "first");
}

TEST_P(KeychainTest, AReadNamesTheOtherGroupsThatHoldTheSame) {
  add(inGroup("a"), "same");
  add(inGroup("b"), "same");
  add(inGroup("c"), "another");
  const std::vector<std::string> copies = read(token).value().copies;
  const std::optional<std::string> group = read(token).value().accessGroup;
  if (group != "c") { EXPECT_EQ(copies, std::vector<std::string>{group == "a" ? "b" : "a"}); }
  EXPECT_EQ(remove(inGroup("c")), KeychainStatus::success);
  EXPECT_EQ(read(token).value().copies.size(), 1U);
}

TEST_P(KeychainTest, RemoveTakesEveryMatchAndNothingElse) {
  EXPECT_EQ(remove(token), KeychainStatus::itemNotFound);
  add(inGroup("a"), "a");
  add(inGroup("b"), "b");
  add(inGroup("c"), "c");
  const KeychainQuery neighbour{.service = token.service, .account = "neighbour"};
  add(neighbour, "stays");
  EXPECT_EQ(remove(inGroup("b")), KeychainStatus::success);
  EXPECT_FALSE(read(inGroup("b")));
  EXPECT_EQ(read(inGroup("a"))->data, "a");
  EXPECT_EQ(remove(token), KeychainStatus::success);
  EXPECT_FALSE(read(token));
  EXPECT_TRUE(read(neighbour));
}

/// Items are shared with programs that are not ours.
class ForeignItemsTest : public KeychainTest {
 protected:
  std::string stored(const std::string& more) {
    return outputOf("secret-tool lookup " + synchronizable + more);
  }

  std::string attributes = "service " + token.service + " account token";
  std::string synchronizable = attributes + " synchronizable true";
};

INSTANTIATE_TEST_SUITE_P(Service, ForeignItemsTest, testing::Values(Subject::service));

TEST_P(ForeignItemsTest, AnItemOfAnotherProgramIsFoundWithItsGroup) {
  storeWithSecretTool(synchronizable + " access-group Q.shared", "theirs");
  const auto item = read(token);
  ASSERT_TRUE(item);
  EXPECT_EQ(item->data, "theirs");
  EXPECT_EQ(item->accessGroup, "Q.shared");
}

TEST_P(ForeignItemsTest, AnItemThatIsNotSynchronizableIsLeftAlone) {
  storeWithSecretTool(attributes, "none of our business");
  storeWithSecretTool(attributes + " synchronizable false", "nor this");
  EXPECT_FALSE(read(token));
  EXPECT_EQ(update(token, "ours"), KeychainStatus::itemNotFound);
  EXPECT_EQ(remove(token), KeychainStatus::itemNotFound);
}

TEST_P(ForeignItemsTest, AnotherProgramFindsOurItem) {
  EXPECT_EQ(add(inGroup("Q.shared"), "ours"), KeychainStatus::success);
  EXPECT_EQ(stored(" access-group Q.shared"), "ours");
  const std::string listed = outputOf("secret-tool search --all " + attributes + " 2>&1");
  EXPECT_NE(listed.find("label = Orvane: " + token.service), std::string::npos) << listed;
}

TEST_P(ForeignItemsTest, OfDuplicatesTheOneChangedLastIsRead) {
  storeWithSecretTool(synchronizable + " colour red", "red");
  const std::time_t second = std::time(nullptr);  // the service counts no parts of it
  ASSERT_TRUE(realTime.letPassUntil([second] { return std::time(nullptr) > second; }));
  storeWithSecretTool(synchronizable + " colour blue", "blue");
  EXPECT_EQ(read(token)->data, "blue");
}

TEST_P(ForeignItemsTest, DuplicatesAreUpdatedAndRemovedTogether) {
  storeWithSecretTool(synchronizable + " colour blue", "blue");
  storeWithSecretTool(synchronizable + " colour red", "red");
  EXPECT_EQ(update(token, "ours"), KeychainStatus::success);
  EXPECT_EQ(stored(" colour red") + stored(" colour blue"), "oursours");
  EXPECT_EQ(remove(token), KeychainStatus::success);
  EXPECT_EQ(stored(""), "");
}

TEST(AccessGroupsTest, SettingListsGroupsBetweenSemicolons) {
  using Groups = std::vector<std::string>;
  EXPECT_EQ(accessGroupsFromSetting(" ; ;\t"), Groups{});
  EXPECT_EQ(accessGroupsFromSetting(";A.own; Q.shared ;;B"), (Groups{"A.own", "Q.shared", "B"}));
}

}}  // namespace orvane::test
