#include "platform/defaults/sqlite_defaults.h"
#include <algorithm>
#include <chrono>
#include <csignal>
#include <fstream>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include "support/memory_defaults.h"
#include "support/temporary_folder.h"

static int waitsForTheDisk = 0;

// SQLite's way to the disk, in the system's place.
extern "C" int fdatasync(int /*file*/) { return ++waitsForTheDisk, 0; }

namespace orvane::test { namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using namespace std::string_literals;
using testing::ElementsAre;
using testing::Optional;

/// A settings file in a folder that does not exist yet, seen from outside.
class SqliteDefaultsTest : public testing::Test {
 protected:
  /// The names of all files beside the settings, in order.
  [[nodiscard]] std::vector<std::string> files() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(file.parent_path())) {
      names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }

  TemporaryFolder folder;
  fs::path file = folder.path() / "config" / "orvane" / "settings.sqlite";
};

/// Another program that has the file open.
class OtherProgram {
 public:
  explicit OtherProgram(const fs::path& file)
      : connection_(openSqlite(file, SqliteAccess::readWrite)) {}

  void run(const std::string& sql) {
    EXPECT_EQ(sqlite3_exec(connection_.get(), sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
  }

 private:
  SqliteConnection connection_;
};

/// A disk without room: from now on no file may grow beyond `bytes`.
void limitFileSize(rlim_t bytes) {
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  ::getrlimit(RLIMIT_FSIZE, &limit);
  limit.rlim_cur = std::min(bytes, limit.rlim_max);
  ::setrlimit(RLIMIT_FSIZE, &limit);
}

/// Which types each key reads as: [t]ext, [d]ata, [b]oolean, text[s].
std::string readableTypes(const UserDefaults& defaults, const std::vector<std::string>& keys) {
  std::string readable;
  for (const std::string& key : keys) {
    if (defaults.text(key)) { readable += 't'; }
    if (defaults.data(key)) { readable += 'd'; }
    if (defaults.boolean(key)) { readable += 'b'; }
    if (defaults.texts(key)) { readable += 's'; }
    readable += ' ';
  }
  return readable;
}

/// The contract of UserDefaults, held by the real settings and by the fake alike.
void expectContract(UserDefaults& defaults) {
  defaults.setText("text", "1");
  defaults.setData("data", "1");
  defaults.setBoolean("boolean", true);
  defaults.setTexts("texts", {"1"});
  EXPECT_EQ(readableTypes(defaults, {"text", "data", "boolean", "texts", "TEXT", ""}), "t d b s   ")
      << "a value reads as its own type only";
  defaults.setTexts("boolean", {});
  defaults.setData("text", "2");
  EXPECT_EQ(readableTypes(defaults, {"boolean", "text"}), "s d ") << "the last write counts";
  defaults.remove("text");
  EXPECT_EQ(readableTypes(defaults, {"text", "texts"}), " s ");
}

TEST_F(SqliteDefaultsTest, HoldTheContractAsTheFakeDoes) {
  SqliteDefaults settings(file);
  expectContract(settings);
  MemoryDefaults fake;
  expectContract(fake);
}

TEST_F(SqliteDefaultsTest, TheFirstStartDoesNotWaitForTheDisk) {
  waitsForTheDisk = 0;
  SqliteDefaults defaults(file);
  defaults.setBoolean("boolean", true);
  EXPECT_EQ(waitsForTheDisk, 0);
}

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
  fs::permissions(file.parent_path(), fs::perms::others_exec, fs::perm_options::add);
  EXPECT_EQ(SqliteDefaults(file).text("key"), "value");
  EXPECT_EQ(permissions(file), ownersAlone);
  EXPECT_EQ(permissions(file.parent_path()), fs::perms::owner_all);
}

TEST_F(SqliteDefaultsTest, ValuesThatMakeNoSenseAreMissing) {
  { const SqliteDefaults defaults(file); }
  OtherProgram(file).run(
      "INSERT INTO settings VALUES ('a', 'text', 5), ('b', 'data', 'x'), ('c', 'boolean', 'yes'),"
      " ('d', 'texts', 'no list'), ('e', 'texts', '[\"x\", 5]'), ('f', 'texts', '{}'),"
      " ('g', 'date', 'today')");
  const SqliteDefaults defaults(file);
  EXPECT_EQ(readableTypes(defaults, {"a", "b", "c", "d", "e", "f", "g"}), "       ");
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

TEST_F(SqliteDefaultsTest, WhatCouldNotBeReadAtTheStartIsReadAndChangedLater) {
  {
    SqliteDefaults defaults(file);
    defaults.setText("a", "old");
    defaults.setText("kept", "old");
    defaults.setText("removed", "old");
  }
  std::optional<OtherProgram> other(file);
  other->run("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE");
  SqliteDefaults defaults(file);
  defaults.setText("a", "new");
  defaults.remove("removed");
  EXPECT_EQ(defaults.text("a"), "new");
  other.reset();
  defaults.setText("b", "b");
  EXPECT_EQ(defaults.text("kept"), "old");
  const SqliteDefaults next(file);
  EXPECT_EQ(next.text("a"), "new");
  EXPECT_EQ(next.text("kept"), "old");
  EXPECT_EQ(next.text("removed"), std::nullopt);
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
  const bool isRoot = ::geteuid() == 0;  // who may write anything
  constexpr auto writing =
      fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  for (const fs::path& readOnly : {file, file.parent_path()}) {
    { SqliteDefaults(file).setText("a", "old"); }
    for (fs::path path = file; path != folder.path().parent_path(); path = path.parent_path()) {
      fs::permissions(path, path == readOnly ? fs::perms::all & ~writing : fs::perms::all);
    }
    if (isRoot) { ASSERT_EQ(::seteuid(65534), 0); }
    {
      SqliteDefaults defaults(file);
      EXPECT_EQ(defaults.text("a"), "old") << readOnly;
      defaults.setText("a", "new");
      EXPECT_EQ(defaults.text("a"), "new") << readOnly;
    }
    if (isRoot) { ASSERT_EQ(::seteuid(0), 0); }
    fs::permissions(readOnly, writing, fs::perm_options::add);
    EXPECT_EQ(SqliteDefaults(file).text("a"), "old");
    EXPECT_THAT(files(), ElementsAre("settings.sqlite"));
  }
}

TEST_F(SqliteDefaultsTest, AFullDiskLosesNothingOldAndIsNoDamage) {
  fs::create_directories(file.parent_path());
  {
    limitFileSize(0);
    SqliteDefaults defaults(file);
    defaults.setText("a", "old");
    limitFileSize(RLIM_INFINITY);
    defaults.setText("c", "there is room");
    EXPECT_EQ(SqliteDefaults(file).text("a"), "old") << "the empty file is tried again";
  }
  {
    SqliteDefaults defaults(file);
    limitFileSize(100'000);
    defaults.setData("large", std::string(1'000'000, 'x'));
    defaults.setText("a", "new");
    EXPECT_EQ(SqliteDefaults(file).text("a"), "old");
    limitFileSize(RLIM_INFINITY);
    defaults.setText("b", "there is room again");
  }
  EXPECT_EQ(SqliteDefaults(file).text("a"), "new");
  EXPECT_EQ(SqliteDefaults(file).data("large"), std::string(1'000'000, 'x'));
  EXPECT_THAT(files(), ElementsAre("settings.sqlite"));
}

TEST_F(SqliteDefaultsTest, FollowsALinkAndTakesAnyName) {
  file = folder.path() / "a%b?c#d é.sqlite";
  const fs::path target = folder.path() / "elsewhere.sqlite";
  fs::create_symlink(target, file);
  { SqliteDefaults(file).setText("a", "value"); }
  fs::permissions(target, fs::perms::group_read, fs::perm_options::add);
  EXPECT_EQ(SqliteDefaults(file).text("a"), "value");
  EXPECT_EQ(fs::status(target).permissions() & fs::perms::group_all, fs::perms::group_read);
  EXPECT_TRUE(fs::is_symlink(file));
  EXPECT_EQ(SqliteDefaults(target).text("a"), "value");
}

TEST(SettingsFileTest, LiesBelowAnAbsoluteConfigHomeOnly) {
  EXPECT_EQ(settingsFile("/c", "/h"), "/c/orvane/settings.sqlite");
  for (const char* configHome : {"", "c", "./c"}) {
    EXPECT_EQ(settingsFile(configHome, "/h"), "/h/.config/orvane/settings.sqlite") << configHome;
  }
}

TEST_F(SqliteDefaultsTest, AListThatGrowsCostsWhatIsNew) {
  const auto written = [this] { return fs::file_size(file.string() + "-wal"); };
  std::vector<std::string> texts(20'000, std::string(64, 'x'));
  {
    SqliteDefaults defaults(file);
    defaults.setTexts("list", texts);
    const std::uintmax_t before = written();
    for (const char* text : {"a", "b", ""}) {
      texts.emplace_back(text);
      defaults.setTexts("list", texts);
    }
    EXPECT_LT(written() - before, 100'000U);
    defaults.setTexts("other", {"a"});
    defaults.setTexts("other", {"a", "b"});
    defaults.setTexts("other", {"c"});
    defaults.setTexts("gone", {"a"});
    defaults.setTexts("gone", {"a", "b"});
    defaults.remove("gone");
  }
  SqliteDefaults defaults(file);
  EXPECT_EQ(defaults.texts("list"), texts);
  EXPECT_THAT(defaults.texts("other"), Optional(ElementsAre("c")));
  defaults.setTexts("gone", {"c"});
  EXPECT_THAT(SqliteDefaults(file).texts("gone"), Optional(ElementsAre("c")));
}

/// Writes number after number, each to two keys, reporting each that is written, for ever.
[[noreturn]] void writeForEver(const fs::path& file, int number, int report) {
  for (SqliteDefaults defaults(file);; ++number) {
    const std::string text = std::to_string(number);
    defaults.setTexts("copies", std::vector<std::string>(1 + number % 300, text));
    defaults.setText("number", text);
    if (::write(report, &number, sizeof number) != sizeof number) { ::_exit(1); }
  }
}

/// Lets a process write and kills it after `reports` numbers; the last one that it reported.
int lastReportOfKilledProcess(const fs::path& file, int start, int reports) {
  std::array<int, 2> channel{};
  EXPECT_EQ(::pipe(channel.data()), 0);
  const pid_t child = ::fork();
  if (child == 0) { writeForEver(file, start, channel[1]); }
  ::close(channel[1]);
  int last = 0;
  for (int number = 0; ::read(channel[0], &number, sizeof number) == sizeof number;) {
    last = number;
    if (--reports == 0) { ::kill(child, SIGKILL); }
  }
  ::close(channel[0]);
  ::waitpid(child, nullptr, 0);
  return last;
}

TEST_F(SqliteDefaultsTest, AKilledProcessLeavesEveryFinishedWriteAndNoHalfOne) {
  int last = 0;
  for (int round = 0; round < 20; ++round) {
    last = lastReportOfKilledProcess(file, last + 1, 1 + round * 7);
    const SqliteDefaults defaults(file);
    const int number = std::stoi(defaults.text("number").value());
    EXPECT_TRUE(number == last || number == last + 1) << number << " after " << last;
    const std::vector<std::string> copies = defaults.texts("copies").value();
    last = std::stoi(copies.front());
    EXPECT_TRUE(last == number || last == number + 1) << last << " after " << number;
    EXPECT_EQ(copies, std::vector<std::string>(1 + last % 300, copies.front()));
  }
  EXPECT_THAT(files(), ElementsAre("settings.sqlite"));
}

/// Files in the settings' place, and what becomes of them.
class DamagedSettingsTest : public SqliteDefaultsTest {
 protected:
  /// A sound file of several pages, with a list that has grown, but for what `sql` does to it.
  std::string soundContent(const std::string& sql = "") {
    const fs::path sound = folder.path() / "sound.sqlite";
    SqliteDefaults defaults(sound);
    for (int index = 0; index < 50; ++index) {
      defaults.setData("data" + std::to_string(index), std::string(1000, 'x'));
    }
    defaults.setTexts("list", {"first"});
    defaults.setTexts("list", {"first", "second"});
    OtherProgram(sound).run(sql + "PRAGMA wal_checkpoint(TRUNCATE)");
    return contentOf(sound);
  }
  std::string databaseOf(const std::string& sql) {
    const fs::path database = folder.path() / "other.sqlite";
    std::ofstream(database).close();
    OtherProgram(database).run(sql);
    return contentOf(database);
  }
  static std::string contentOf(const fs::path& path) {
    std::ifstream stream(path);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  void replaceFile(const std::string& content) const {
    fs::create_directories(file.parent_path());
    std::ofstream(file) << content;
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
  constexpr std::size_t pageSize = 4096;
  const std::string sound = soundContent();
  std::string scrambled = sound;
  for (std::size_t at = pageSize; at < scrambled.size(); at += 3) {
    scrambled[at] = '\x5a';
  }
  std::string unreadableIndex = sound;  // which only a look at the whole structure meets
  unreadableIndex.replace(2 * pageSize, 100, 100, '\x5a');
  const std::string nameOfAnotherType = soundContent(
      "PRAGMA writable_schema = ON;"
      "UPDATE sqlite_schema SET name = CAST(name AS BLOB) WHERE name = 'additions';");
  const std::string ours = "PRAGMA application_id = 1330796110; PRAGMA user_version = ";
  const std::vector<std::pair<const char*, std::string>> contents{
      {"a text", "no database"},
      {"scrambled", scrambled},
      {"an unreadable index", unreadableIndex},
      {"a table whose name is no text, which SQLite does not mind", nameOfAnotherType},
      {"half of it", sound.substr(0, sound.size() / 2)},
      {"all but a page", sound.substr(0, sound.size() - pageSize)},
      {"all but a byte, which would be read as a zero", sound.substr(0, sound.size() - 1)},
      {"a table of nobody's", databaseOf("CREATE TABLE settings (key, type, value)")},
      {"another program's", databaseOf("CREATE TABLE bookmarks (url);"
                                       "PRAGMA application_id = 252006674")},
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

}}  // namespace orvane::test
