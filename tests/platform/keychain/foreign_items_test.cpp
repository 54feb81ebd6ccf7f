// Items are shared with programs that are not ours.

#include <ctime>

#include "platform/eventloop/real_time.h"
#include "platform/keychain/secret_service_keychain.h"
#include "support/session_tools.h"

namespace orvane::test {
namespace {

class ForeignItemsTest : public RealTimeTest {
 protected:
  /// Stores an item that differs from its like in its colour.
  void storeOne(const std::string& colour) {
    storeWithSecretTool(synchronizable + " colour " + colour, colour);
  }
  std::string stored(const std::string& more = "") {
    return outputOf("secret-tool lookup " + synchronizable + more);
  }
  std::optional<KeychainItem> read() {
    return run(keychain.copyMatching(query, KeychainPrompt::never));
  }
  KeychainStatus update() { return run(keychain.update(query, "ours", KeychainPrompt::never)); }
  KeychainStatus remove() { return run(keychain.remove(query, KeychainPrompt::never)); }

  SessionBus bus{*executor};
  SecretServiceKeychain keychain{bus};
  KeychainQuery query{.service = ::testing::UnitTest::GetInstance()->current_test_info()->name(),
                      .account = "token"};
  std::string attributes = "service " + query.service + " account token";
  std::string synchronizable = attributes + " synchronizable true";
};

TEST_F(ForeignItemsTest, AnItemOfAnotherProgramIsFoundWithItsGroup) {
  storeWithSecretTool(synchronizable + " access-group Q.shared", "theirs");
  const auto item = read();
  ASSERT_TRUE(item);
  EXPECT_EQ(item->data, "theirs");
  EXPECT_EQ(item->accessGroup, "Q.shared");
}

TEST_F(ForeignItemsTest, AnItemThatIsNotSynchronizableIsLeftAlone) {
  storeWithSecretTool(attributes, "none of our business");
  storeWithSecretTool(attributes + " synchronizable false", "nor this");
  EXPECT_FALSE(read());
  EXPECT_EQ(update(), KeychainStatus::itemNotFound);
  EXPECT_EQ(remove(), KeychainStatus::itemNotFound);
  EXPECT_EQ(countWithSecretTool(attributes), 2);
}

TEST_F(ForeignItemsTest, AnotherProgramFindsOurItem) {
  query.accessGroup = "Q.shared";
  EXPECT_EQ(run(keychain.add(query, "ours", KeychainPrompt::never)), KeychainStatus::success);
  EXPECT_EQ(stored(" access-group Q.shared"), "ours");
  const std::string listed = outputOf("secret-tool search --all " + attributes + " 2>&1");
  EXPECT_NE(listed.find("label = Orvane: " + query.service), std::string::npos) << listed;
}

TEST_F(ForeignItemsTest, OfDuplicatesTheOneChangedLastIsRead) {
  storeOne("red");
  const std::time_t second = std::time(nullptr);  // the service counts no parts of it
  ASSERT_TRUE(letPassUntil([second] { return std::time(nullptr) > second; }));
  storeOne("blue");
  EXPECT_EQ(read()->data, "blue");
}

TEST_F(ForeignItemsTest, DuplicatesAreUpdatedAndRemovedTogether) {
  for (const char* colour : {"blue", "red", "green"}) {
    storeOne(colour);
  }
  EXPECT_EQ(update(), KeychainStatus::success);
  EXPECT_EQ(countWithSecretTool(attributes), 3);
  EXPECT_EQ(stored(" colour red"), "ours");
  EXPECT_EQ(stored(" colour blue"), "ours");
  EXPECT_EQ(remove(), KeychainStatus::success);
  EXPECT_EQ(countWithSecretTool(attributes), 0);
}

TEST(AccessGroupsTest, SettingListsGroupsBetweenSemicolons) {
  using Groups = std::vector<std::string>;
  EXPECT_EQ(accessGroupsFromSetting(" ; ;\t"), Groups{});
  EXPECT_EQ(accessGroupsFromSetting("Q.shared"), Groups{"Q.shared"});
  EXPECT_EQ(accessGroupsFromSetting(";A.own; Q.shared ;;B"), (Groups{"A.own", "Q.shared", "B"}));
}

}  // namespace
}  // namespace orvane::test
