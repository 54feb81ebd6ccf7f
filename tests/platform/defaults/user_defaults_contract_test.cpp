// The contract of UserDefaults, held by the real settings and by the fake alike.

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "settings_fixture.h"
#include "support/memory_defaults.h"

namespace orvane::test {
namespace {

/// Which of the four types each key reads as.
std::string readableTypes(const UserDefaults& defaults, const std::vector<std::string>& keys) {
  std::string readable;
  for (const std::string& key : keys) {
    readable += defaults.text(key) ? '+' : '-';
    readable += defaults.data(key) ? '+' : '-';
    readable += defaults.boolean(key) ? '+' : '-';
    readable += defaults.texts(key) ? "+ " : "- ";
  }
  return readable;
}

void expectContract(UserDefaults& defaults) {
  defaults.setText("text", "1");
  defaults.setData("data", "1");
  defaults.setBoolean("boolean", true);
  defaults.setTexts("texts", {"1"});
  EXPECT_EQ(readableTypes(defaults, {"text", "data", "boolean", "texts", "TEXT", ""}),
            "+--- -+-- --+- ---+ ---- ---- ")
      << "a value reads as its own type only";

  defaults.setBoolean("boolean", false);
  EXPECT_EQ(defaults.boolean("boolean"), false);
  defaults.setTexts("boolean", {});
  EXPECT_THAT(defaults.texts("boolean"), testing::Optional(testing::IsEmpty()));
  defaults.setData("text", "2");
  EXPECT_EQ(defaults.data("text"), "2");
  EXPECT_EQ(readableTypes(defaults, {"boolean", "text"}), "---+ -+-- ") << "the last write counts";

  defaults.remove("text");
  defaults.remove("text");
  defaults.remove("never written");
  EXPECT_EQ(readableTypes(defaults, {"text", "texts"}), "---- ---+ ");
  defaults.setText("text", "again");
  EXPECT_EQ(defaults.text("text"), "again");
}

TEST(UserDefaultsContractTest, IsHeldByTheSettingsFile) {
  const TemporaryFolder folder;
  SqliteDefaults defaults(folder.path() / "settings.sqlite");
  expectContract(defaults);
}

TEST(UserDefaultsContractTest, IsHeldByTheFake) {
  MemoryDefaults defaults;
  expectContract(defaults);
}

}  // namespace
}  // namespace orvane::test
