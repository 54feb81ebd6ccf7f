#include "platform/eventloop/real_time.h"
#include "platform/keychain/keychain.h"
#include "platform/keychain/secret_service_keychain.h"
#include "support/session_tools.h"

namespace orvane::test {
namespace {

/// Items are shared with programs that are not ours.
class ForeignItemsTest : public RealTimeTest {
 protected:
  std::optional<KeychainItem> read() {
    return run(keychain.copyMatching(query, KeychainPrompt::never));
  }

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
  EXPECT_EQ(run(keychain.update(query, "x", KeychainPrompt::never)), KeychainStatus::itemNotFound);
  EXPECT_EQ(run(keychain.remove(query, KeychainPrompt::never)), KeychainStatus::itemNotFound);
  EXPECT_EQ(countWithSecretTool(attributes), 2);
}

TEST_F(ForeignItemsTest, AnotherProgramFindsOurItem) {
  query.accessGroup = "Q.shared";
  EXPECT_EQ(run(keychain.add(query, "ours", KeychainPrompt::never)), KeychainStatus::success);
  EXPECT_EQ(outputOf("secret-tool lookup " + synchronizable + " access-group Q.shared"), "ours");
  const std::string listed = outputOf("secret-tool search --all " + attributes + " 2>&1");
  EXPECT_NE(listed.find("label = Orvane: " + query.service), std::string::npos) << listed;
}

TEST_F(ForeignItemsTest, UpdatingKeepsTheItemAndItsOtherAttributes) {
  storeWithSecretTool(synchronizable + " colour blue", "theirs");
  EXPECT_EQ(run(keychain.update(query, "ours", KeychainPrompt::never)), KeychainStatus::success);
  EXPECT_EQ(countWithSecretTool(attributes), 1);
  EXPECT_EQ(outputOf("secret-tool lookup " + attributes + " colour blue"), "ours");
}

TEST_F(ForeignItemsTest, OfDuplicatesOneIsReadAndAllAreUpdatedAndRemoved) {
  for (const std::string colour : {"blue", "red", "green"}) {
    storeWithSecretTool(synchronizable + " colour " + colour, colour);
  }
  const auto first = read();
  ASSERT_TRUE(first);
  EXPECT_EQ(read()->data, first->data);
  EXPECT_EQ(run(keychain.update(query, "ours", KeychainPrompt::never)), KeychainStatus::success);
  EXPECT_EQ(outputOf("secret-tool lookup " + attributes + " colour red"), "ours");
  EXPECT_EQ(countWithSecretTool(attributes), 3);
  EXPECT_EQ(run(keychain.remove(query, KeychainPrompt::never)), KeychainStatus::success);
  EXPECT_EQ(countWithSecretTool(attributes), 0);
}

TEST(AccessGroupsTest, SettingListsGroupsBetweenSemicolons) {
  using Groups = std::vector<std::string>;
  EXPECT_EQ(accessGroupsFromSetting(""), Groups{});
  EXPECT_EQ(accessGroupsFromSetting(" ; ;\t"), Groups{});
  EXPECT_EQ(accessGroupsFromSetting("Q.shared"), Groups{"Q.shared"});
  EXPECT_EQ(accessGroupsFromSetting(";A.own; Q.shared ;;B"), (Groups{"A.own", "Q.shared", "B"}));
}

}  // namespace
}  // namespace orvane::test
