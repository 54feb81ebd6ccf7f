#include "shell/view_models/settings_fields.h"

#include <gtest/gtest.h>

#include "shell/view_models/app_info.h"

namespace orvane::test {
namespace {

TEST(SettingsFieldsTest, OnlyAnotherTextCanBeSavedAndOnlyAKeptOneRemoved) {
  struct Case {
    const char* name;
    std::string kept;
    std::string draft;
    SettingsFieldState field;
  };
  const SettingsFieldState saveOnly{.canSave = true, .canRemove = false};
  const SettingsFieldState removeOnly{.canSave = false, .canRemove = true};
  const SettingsFieldState both{.canSave = true, .canRemove = true};
  for (const auto& [name, kept, draft, field] :
       std::vector<Case>{{"nothing", "", "", {}},
                         {"blanks alone", "", " \n", {}},
                         {"a first text", "", "a", saveOnly},
                         {"the kept text", "a", "a", removeOnly},
                         {"blanks of any kind around it", "a", "\u00a0a\u2028", removeOnly},
                         {"blanks within it", "ab", "a b", both},
                         {"an emptied field", "a", "", both}}) {
    BalanceState state;
    state.token = kept;
    EXPECT_EQ(tokenFieldState(state, draft), field) << "token: " << name;
    state.token = "other";
    state.watchedAddress = "the miner's";
    state.ownAddress = kept;
    EXPECT_EQ(addressFieldState(state, draft), field) << "address: " << name;
  }
}

TEST(SettingsFieldsTest, TheEmptyAddressFieldAsksForAnotherOneThanTheMiners) {
  BalanceState state;
  EXPECT_STREQ(addressPlaceholder(state),
               "Bitcoin address to watch, e.g. your solo-mining payout address");
  state.addressIsFromMiner = true;
  EXPECT_STREQ(addressPlaceholder(state), "Another Bitcoin address to watch instead");
}

TEST(SettingsFieldsTest, TheAccountLinkLeadsToTheHostThatItNames) {
  EXPECT_EQ(accountLink("pool.test:8443").text, "Open the account at pool.test:8443");
  EXPECT_EQ(accountLink("pool.test:8443").url, "https://pool.test:8443/");
}

TEST(AppInfoTest, TheVersionTextHasABuildWhereThereIsOne) {
  EXPECT_EQ(applicationVersionText("1.2.0", "345"), "Version 1.2.0 (345)");
  EXPECT_EQ(applicationVersionText("1.2.0", ""), "Version 1.2.0");
  EXPECT_EQ(applicationVersionText({}, "345"), "Version 1.0 (345)");
  EXPECT_EQ(applicationVersionText({}, {}), "Version 1.0");
}

}  // namespace
}  // namespace orvane::test
