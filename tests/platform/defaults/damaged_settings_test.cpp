#include "settings_fixture.h"

namespace orvane::test {
namespace {

/// Files in the settings' place, and what becomes of them.
class DamagedSettingsTest : public SettingsFileTest {
 protected:
  /// A sound file of several pages.
  std::string soundContent() {
    const fs::path sound = folder.path() / "sound.sqlite";
    SqliteDefaults defaults(sound);
    for (int index = 0; index < 50; ++index) {
      defaults.setData("data" + std::to_string(index), std::string(1000, 'x'));
    }
    OtherProgram(sound).run("PRAGMA wal_checkpoint(TRUNCATE)");
    return contentOf(sound);
  }
  std::string databaseOf(const std::string& sql) {
    const fs::path database = folder.path() / "other.sqlite";
    fs::remove(database);
    OtherProgram(database).run(sql);
    return contentOf(database);
  }
  /// Starts with what is in the file's place, changes a setting and reads it after a restart.
  void startAndWrite() {
    { SqliteDefaults(file).setText("new", "value"); }
    EXPECT_EQ(SqliteDefaults(file).text("new"), "value");
  }
  fs::path asideFile(std::size_t number = 1) const {
    return file.string() + ".set-aside-" + std::to_string(number);
  }
};

TEST_F(DamagedSettingsTest, AreSetAsideAsTheyWereAndEveryOneIsKept) {
  const std::string sound = soundContent();
  std::string scrambled = sound;
  for (std::size_t at = 4096; at < scrambled.size(); at += 3) {
    scrambled[at] = '\x5a';
  }
  std::string unreadableIndex = sound;  // which only a look at the whole structure meets
  unreadableIndex.replace(2 * 4096, 100, 100, '\x5a');
  const std::string ours = "PRAGMA application_id = 1330796110; PRAGMA user_version = ";
  const std::vector<std::pair<const char*, std::string>> contents{
      {"a text", "no database"},
      {"zeros", std::string(100, '\0')},
      {"another first byte", "X" + sound.substr(1)},
      {"scrambled", scrambled},
      {"an unreadable index", unreadableIndex},
      {"the header alone", sound.substr(0, 100)},
      {"half of it", sound.substr(0, sound.size() / 2)},
      {"all but a page", sound.substr(0, sound.size() - 4096)},
      {"a table of nobody's", databaseOf("CREATE TABLE settings (key, type, value)")},
      {"another program's", databaseOf("CREATE TABLE bookmarks (url);"
                                       "PRAGMA application_id = 252006674")},
      {"ours without a table", databaseOf(ours + "1")},
      {"ours without a column", databaseOf("CREATE TABLE settings (key, value);" + ours + "1")},
      {"a later version's", databaseOf("CREATE TABLE settings (key, type, value);" + ours + "2")},
  };
  for (std::size_t index = 0; index < contents.size(); ++index) {
    replaceFile(contents[index].second);
    startAndWrite();
    EXPECT_EQ(files().size(), index + 2) << contents[index].first;
  }
  for (std::size_t index = 0; index < contents.size(); ++index) {
    EXPECT_EQ(contentOf(asideFile(index + 1)), contents[index].second) << contents[index].first;
  }
}

TEST_F(DamagedSettingsTest, TakeTheirLogWithThem) {
  replaceFile("no database");
  fs::copy_file(file, file.string() + "-wal");
  startAndWrite();
  EXPECT_EQ(contentOf(asideFile().string() + "-wal"), "no database");
  EXPECT_FALSE(fs::exists(file.string() + "-wal"));
}

TEST_F(DamagedSettingsTest, AnEmptyFileIsANewOne) {
  replaceFile("");
  startAndWrite();
  EXPECT_THAT(files(), testing::ElementsAre("settings.sqlite"));
}

TEST_F(DamagedSettingsTest, AFolderInTheirPlaceIsSetAside) {
  fs::create_directories(file / "inside");
  startAndWrite();
  EXPECT_TRUE(fs::is_directory(asideFile() / "inside"));
}

}  // namespace
}  // namespace orvane::test
