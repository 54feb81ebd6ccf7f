// The contract of UserDefaults, held by the real settings and by the fake alike.

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/defaults/sqlite_defaults.h"
#include "support/memory_defaults.h"
#include "support/temporary_folder.h"

namespace orvane::test {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::Optional;

class SqliteSettings {
 public:
  UserDefaults& operator*() { return defaults_; }

 private:
  TemporaryFolder folder_;
  SqliteDefaults defaults_{folder_.path() / "settings.sqlite"};
};

class MemorySettings {
 public:
  UserDefaults& operator*() { return defaults_; }

 private:
  MemoryDefaults defaults_;
};

template <class Settings>
class UserDefaultsContractTest : public testing::Test {
 protected:
  Settings settings;
  UserDefaults& defaults = *settings;
};
using Implementations = testing::Types<SqliteSettings, MemorySettings>;
TYPED_TEST_SUITE(UserDefaultsContractTest, Implementations);

TYPED_TEST(UserDefaultsContractTest, AValueReadsAsItsOwnTypeOnly) {
  UserDefaults& defaults = this->defaults;
  defaults.setText("text", "1");
  defaults.setData("data", "1");
  defaults.setBoolean("boolean", true);
  defaults.setTexts("texts", {"1"});
  const std::vector<std::string> keys{"text", "data", "boolean", "texts", "none", "TEXT", ""};
  std::string readable;
  for (const std::string& key : keys) {
    readable += defaults.text(key) ? '+' : '-';
    readable += defaults.data(key) ? '+' : '-';
    readable += defaults.boolean(key) ? '+' : '-';
    readable += defaults.texts(key) ? "+ " : "- ";
  }
  EXPECT_EQ(readable, "+--- -+-- --+- ---+ ---- ---- ---- ");
}

TYPED_TEST(UserDefaultsContractTest, KeepsEveryByte) {
  const std::vector<std::string> values{"", "€ ₿", "a\0b"s, "'; DROP TABLE settings; --"};
  for (const std::string& value : values) {
    this->defaults.setText("text", value);
    this->defaults.setData(value, "\xff\0\x80"s);
    this->defaults.setTexts("texts", {value, "", value});
    EXPECT_EQ(this->defaults.text("text"), value);
    EXPECT_EQ(this->defaults.data(value), "\xff\0\x80"s);
    EXPECT_THAT(this->defaults.texts("texts"), Optional(ElementsAre(value, "", value)));
  }
}

TYPED_TEST(UserDefaultsContractTest, TheLastWriteCountsWhateverItsType) {
  UserDefaults& defaults = this->defaults;
  defaults.setBoolean("key", true);
  defaults.setBoolean("key", false);
  EXPECT_EQ(defaults.boolean("key"), false);
  defaults.setTexts("key", {});
  EXPECT_EQ(defaults.boolean("key"), std::nullopt);
  EXPECT_THAT(defaults.texts("key"), Optional(testing::IsEmpty()));
  defaults.setText("key", "a");
  defaults.setData("key", "a");
  EXPECT_EQ(defaults.text("key"), std::nullopt);
  EXPECT_EQ(defaults.data("key"), "a");
}

TYPED_TEST(UserDefaultsContractTest, RemovingLeavesNothingAndHurtsNoOther) {
  UserDefaults& defaults = this->defaults;
  defaults.setText("key", "a");
  defaults.setText("keys", "b");
  defaults.remove("key");
  defaults.remove("key");
  defaults.remove("never written");
  EXPECT_EQ(defaults.text("key"), std::nullopt);
  EXPECT_EQ(defaults.text("keys"), "b");
  defaults.setText("key", "again");
  EXPECT_EQ(defaults.text("key"), "again");
}

}  // namespace
}  // namespace orvane::test
