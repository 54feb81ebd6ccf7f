#include "platform/defaults/sqlite_defaults.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "settings_fixture.h"
#include "surroundings.h"

namespace orvane::test {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using namespace std::string_literals;
using testing::ElementsAre;
using testing::Optional;

class SqliteDefaultsTest : public SettingsFileTest {};

constexpr auto writing = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;

TEST_F(SqliteDefaultsTest, EverythingIsThereAfterARestart) {
  {
    SqliteDefaults defaults(file);
    defaults.setText("text", "a\0b"s);
    defaults.setData("data", "\xff\0"s);
    defaults.setBoolean("boolean", false);
    defaults.setTexts("texts", {"b", "", "ä\0\"\\"s});
    defaults.setTexts("empty", {});
    defaults.setText("removed", "a");
    defaults.remove("removed");
  }
  EXPECT_THAT(files(), ElementsAre("settings.sqlite"));
  const SqliteDefaults defaults(file);
  EXPECT_EQ(defaults.text("text"), "a\0b"s);
  EXPECT_EQ(defaults.data("data"), "\xff\0"s);
  EXPECT_EQ(defaults.boolean("boolean"), false);
  EXPECT_THAT(defaults.texts("texts"), Optional(ElementsAre("b", "", "ä\0\"\\"s)));
  EXPECT_THAT(defaults.texts("empty"), Optional(testing::IsEmpty()));
  EXPECT_EQ(defaults.text("removed"), std::nullopt);
}

TEST_F(SqliteDefaultsTest, NobodyElseMayLook) {
  const auto permissions = [](const fs::path& path) { return fs::status(path).permissions(); };
  const auto ownersAlone = fs::perms::owner_read | fs::perms::owner_write;
  {
    SqliteDefaults defaults(file);
    defaults.setText("key", "value");
    EXPECT_EQ(permissions(file.parent_path()), fs::perms::owner_all);
    EXPECT_EQ(permissions(file.parent_path().parent_path()), fs::perms::owner_all);
    for (const std::string& name : files()) {
      EXPECT_EQ(permissions(file.parent_path() / name), ownersAlone) << name;
    }
  }
  fs::permissions(file, fs::perms::others_read, fs::perm_options::add);
  EXPECT_EQ(SqliteDefaults(file).text("key"), "value");
  EXPECT_EQ(permissions(file), ownersAlone);
}

TEST_F(SqliteDefaultsTest, ValuesThatMakeNoSenseAreMissing) {
  { const SqliteDefaults defaults(file); }
  OtherProgram(file).run(
      "INSERT INTO settings VALUES ('a', 'text', 5), ('b', 'data', 'x'), ('c', 'boolean', 'yes'),"
      " ('d', 'texts', 'no list'), ('e', 'texts', '[\"x\", 5]'), ('f', 'texts', '{}'),"
      " ('g', 'date', 'today')");
  SqliteDefaults defaults(file);
  for (const char* const key : {"a", "b", "c", "d", "e", "f", "g"}) {
    EXPECT_FALSE(defaults.text(key) || defaults.data(key) || defaults.boolean(key) ||
                 defaults.texts(key))
        << key;
  }
  defaults.setText("a", "now it does");
  EXPECT_EQ(SqliteDefaults(file).text("a"), "now it does");
}

TEST_F(SqliteDefaultsTest, ALockedFileDelaysNobodyAndTheChangeIsSavedLater) {
  SqliteDefaults defaults(file);
  defaults.setText("a", "old");
  OtherProgram other(file);
  other.run("BEGIN EXCLUSIVE");
  const auto start = std::chrono::steady_clock::now();
  defaults.setText("a", "new");
  EXPECT_LT(std::chrono::steady_clock::now() - start, 3s);
  EXPECT_EQ(defaults.text("a"), "new");
  EXPECT_EQ(SqliteDefaults(file).text("a"), "old");
  other.run("ROLLBACK");
  defaults.setText("b", "next");
  EXPECT_EQ(SqliteDefaults(file).text("a"), "new");
}

TEST_F(SqliteDefaultsTest, WhatCouldNotBeReadIsNotOverwritten) {
  { SqliteDefaults(file).setText("a", "old"); }
  OtherProgram other(file);
  other.run("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE");
  SqliteDefaults defaults(file);
  defaults.setText("a", "new");
  EXPECT_EQ(defaults.text("a"), "new");
  other.run("COMMIT; PRAGMA locking_mode = NORMAL; SELECT * FROM settings");
  defaults.setText("b", "b");
  EXPECT_EQ(SqliteDefaults(file).text("a"), "old");
}

TEST_F(SqliteDefaultsTest, ChangesLiveInMemoryWhereNothingCanBeWritten) {
  const fs::path pipe = folder.path() / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), S_IRUSR | S_IWUSR | S_IRGRP), 0);
  const std::vector<fs::path> places{"/proc/orvane/settings.sqlite", pipe / "settings.sqlite",
                                     folder.path() / std::string(300, 'x'), pipe, ""};
  for (const fs::path& place : places) {
    SqliteDefaults defaults(place);
    defaults.setText("a", "value");
    EXPECT_EQ(defaults.text("a"), "value") << place;
  }
  EXPECT_EQ(fs::status(pipe).permissions() & fs::perms::group_all, fs::perms::group_read);
}

TEST_F(SqliteDefaultsTest, ReadsWhatItMayNotWrite) {
  for (const fs::path& readOnly : {file, file.parent_path()}) {
    { SqliteDefaults(file).setText("a", "old"); }
    for (fs::path path = file; path != folder.path().parent_path(); path = path.parent_path()) {
      fs::permissions(path, path == readOnly ? fs::perms::all & ~writing : fs::perms::all);
    }
    {
      const OrdinaryUser user;
      SqliteDefaults defaults(file);
      EXPECT_EQ(defaults.text("a"), "old") << readOnly;
      defaults.setText("a", "new");
      EXPECT_EQ(defaults.text("a"), "new") << readOnly;
    }
    fs::permissions(readOnly, writing, fs::perm_options::add);
    EXPECT_EQ(SqliteDefaults(file).text("a"), "old");
    EXPECT_THAT(files(), ElementsAre("settings.sqlite"));
  }
}

TEST_F(SqliteDefaultsTest, AFullDiskLosesNothingOldAndIsNoDamage) {
  fs::create_directories(file.parent_path());
  {
    const FullDisk fullDisk(0);
    SqliteDefaults defaults(file);
    defaults.setText("a", "value");
    EXPECT_EQ(defaults.text("a"), "value");
  }
  { SqliteDefaults(file).setText("a", "old"); }
  const std::string large(1'000'000, 'x');
  {
    SqliteDefaults defaults(file);
    {
      const FullDisk fullDisk(100'000);
      defaults.setData("large", large);
      defaults.setText("a", "new");
      EXPECT_EQ(defaults.data("large"), large);
      EXPECT_EQ(SqliteDefaults(file).text("a"), "old");
    }
    defaults.setText("b", "there is room again");
    EXPECT_EQ(SqliteDefaults(file).text("a"), "new");
  }
  EXPECT_EQ(SqliteDefaults(file).data("large"), large);
  EXPECT_THAT(files(), ElementsAre("settings.sqlite"));
}

TEST_F(SqliteDefaultsTest, FollowsALinkAndTakesAnyName) {
  file = folder.path() / "a%b?c#d é.sqlite";
  const fs::path target = folder.path() / "elsewhere.sqlite";
  fs::create_symlink(target, file);
  { SqliteDefaults(file).setText("a", "value"); }
  EXPECT_TRUE(fs::is_symlink(file));
  EXPECT_EQ(SqliteDefaults(target).text("a"), "value");
}

}  // namespace
}  // namespace orvane::test
