#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "settings_fixture.h"

namespace orvane::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

/// Files in the settings' place, and what becomes of them.
class DamagedSettingsTest : public SettingsFileTest {
 protected:
  /// A sound file of several pages.
  std::string soundContent() {
    const fs::path sound = folder.path() / "sound.sqlite";
    {
      SqliteDefaults defaults(sound);
      defaults.setText("a", "old");
      for (int index = 0; index < 50; ++index) {
        defaults.setData("data" + std::to_string(index), std::string(1000, 'x'));
      }
    }
    return contentOf(sound);
  }
  std::string databaseOf(const std::string& sql) {
    const fs::path database = folder.path() / "other.sqlite";
    fs::remove(database);
    sqlite3* connection = nullptr;
    sqlite3_open(database.c_str(), &connection);
    EXPECT_EQ(sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(connection);
    return contentOf(database);
  }
  /// Starts with what is in the file's place, changes a setting and reads it after a restart.
  void startAndWrite() {
    {
      SqliteDefaults defaults(file);
      defaults.setText("new", "value");
    }
    EXPECT_EQ(SqliteDefaults(file).text("new"), "value");
  }
  fs::path asideFile(int number = 1) const {
    return file.string() + ".set-aside-" + std::to_string(number);
  }
};

TEST_F(DamagedSettingsTest, AreSetAsideAsTheyWere) {
  const std::string sound = soundContent();
  std::string scrambled = sound;
  for (std::size_t at = 4096; at < scrambled.size(); at += 3)
    scrambled[at] = '\x5a';
  std::string wrongHeader = sound;
  wrongHeader[0] = 'X';
  const std::vector<std::string> contents{
      "no database",
      "{\"balance.unit\": \"sats\"}",
      std::string(100, '\0'),
      std::string(5000, '\xff'),
      wrongHeader,
      scrambled,
      sound.substr(0, 100),
      sound.substr(0, 4096),
      sound.substr(0, sound.size() / 2),
      sound.substr(0, sound.size() - 4096),
      databaseOf("CREATE TABLE settings (key, type, value)"),
      databaseOf("CREATE TABLE bookmarks (url); PRAGMA application_id = 252006674"),
      databaseOf("PRAGMA application_id = 1330796110; PRAGMA user_version = 1"),
      databaseOf("CREATE TABLE settings (key, value); PRAGMA application_id = 1330796110;"
                 "PRAGMA user_version = 1"),
      databaseOf("CREATE TABLE settings (key TEXT PRIMARY KEY, type, value);"
                 "PRAGMA application_id = 1330796110; PRAGMA user_version = 2"),
  };
  for (std::size_t index = 0; index < contents.size(); ++index) {
    fs::remove_all(file.parent_path());
    replaceFile(contents[index]);
    startAndWrite();
    EXPECT_EQ(contentOf(asideFile()), contents[index]) << "content " << index;
    EXPECT_THAT(files(), ElementsAre("settings.sqlite", "settings.sqlite.set-aside-1"))
        << "content " << index;
  }
}

TEST_F(DamagedSettingsTest, AnEmptyFileIsANewOne) {
  replaceFile("");
  startAndWrite();
  EXPECT_THAT(files(), ElementsAre("settings.sqlite"));
}

TEST_F(DamagedSettingsTest, TakeTheirLogWithThem) {
  replaceFile("no database");
  fs::copy_file(file, file.string() + "-wal");
  startAndWrite();
  EXPECT_EQ(contentOf(asideFile().string() + "-wal"), "no database");
  EXPECT_FALSE(fs::exists(file.string() + "-wal"));
}

TEST_F(DamagedSettingsTest, EveryOneIsKept) {
  for (int number = 1; number <= 3; ++number) {
    replaceFile("damage " + std::to_string(number));
    startAndWrite();
  }
  for (int number = 1; number <= 3; ++number) {
    EXPECT_EQ(contentOf(asideFile(number)), "damage " + std::to_string(number));
  }
}

TEST_F(DamagedSettingsTest, AFolderInTheirPlaceIsSetAside) {
  fs::create_directories(file / "inside");
  startAndWrite();
  EXPECT_TRUE(fs::is_directory(asideFile() / "inside"));
}

TEST_F(DamagedSettingsTest, RandomDamageIsNeverWorseThanALoss) {
  const std::string sound = soundContent();
  std::mt19937 random(2026);
  int survived = 0;
  for (int round = 0; round < 60; ++round) {
    std::string content = sound;
    for (std::uint32_t hits = 1 + random() % 20; hits > 0; --hits) {
      content[random() % content.size()] = static_cast<char>(random());
    }
    fs::remove_all(file.parent_path());
    replaceFile(content);
    {
      const SqliteDefaults defaults(file);
      survived += fs::exists(asideFile()) ? 0 : 1;
      if (fs::exists(asideFile())) EXPECT_EQ(contentOf(asideFile()), content);
    }
    startAndWrite();
  }
  // Most bytes are payload that SQLite does not check; both outcomes must have been met.
  EXPECT_GT(survived, 0);
  EXPECT_LT(survived, 60);
}

}  // namespace
}  // namespace orvane::test
