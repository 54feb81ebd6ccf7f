#include "platform/defaults/settings_file.h"

#include <array>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/defaults/settings_table.h"

namespace orvane {

/// Creates `file`, empty, and the folders above it that are missing, for the user's eyes only. One
/// that exists keeps its content and is closed to other users. Failures are left for the one who
/// opens the file to meet.
void createPrivateFile(const std::filesystem::path& file);

/// Gives a database file a name of its own, "settings.sqlite.set-aside-1" or the next free number,
/// together with its journals. Nothing is overwritten. False when the file is still there.
[[nodiscard]] bool setAside(const std::filesystem::path& file);

namespace {

namespace fs = std::filesystem;

constexpr int mostFilesSetAside = 10'000;

void createPrivateFolder(const fs::path& folder) {
  std::error_code ignored;
  if (folder.empty() || fs::exists(folder, ignored)) { return; }
  createPrivateFolder(folder.parent_path());
  ::mkdir(folder.c_str(), S_IRWXU);
}

fs::path withSuffix(fs::path file, std::string_view suffix) { return file += suffix; }

bool isTaken(const fs::path& file) {
  std::error_code ignored;
  return fs::symlink_status(file, ignored).type() != fs::file_type::not_found;
}

fs::path freeNameBeside(const fs::path& file) {
  int number = 1;
  fs::path name;
  do {
    name = withSuffix(file, fmt::format(".set-aside-{}", number));
  } while (isTaken(name) && number++ < mostFilesSetAside);
  return name;
}

}  // namespace

void createPrivateFile(const fs::path& file) {
  createPrivateFolder(file.parent_path());
  const int descriptor = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (descriptor >= 0) { ::close(descriptor); }
  std::error_code ignored;
  fs::permissions(file, fs::perms::group_all | fs::perms::others_all, fs::perm_options::remove,
                  ignored);
}

bool setAside(const fs::path& file) {
  constexpr std::array<std::string_view, 2> journals{"-wal", "-journal"};
  constexpr std::string_view logIndex = "-shm";  // holds nothing that the log does not
  const fs::path name = freeNameBeside(file);
  std::error_code error;
  if (!isTaken(name)) { fs::rename(file, name, error); }
  if (isTaken(file)) { return false; }
  for (const std::string_view suffix : journals) {
    const fs::path journal = withSuffix(file, suffix);
    if (fs::file_size(journal, error) > 0) {
      fs::rename(journal, withSuffix(name, suffix), error);
    } else {
      fs::remove(journal, error);
    }
  }
  fs::remove(withSuffix(file, logIndex), error);
  return true;
}

namespace {

namespace fs = std::filesystem;

constexpr int longestWaitAtStartInMilliseconds = 500;
constexpr int longestWaitInMilliseconds = 50;

struct Attempt {
  SettingsState state = SettingsState::unavailable;
  OpenedSettings settings = {};
};

/// A write-ahead log takes a change without waiting for the disk: a killed process loses nothing,
/// a power failure at most the last changes, and neither harms the file. Where the file system
/// has no place for such a log SQLite stays with its rollback journal, and with waiting.
void chooseJournal(sqlite3* connection) {
  const PreparedSql journal = prepare(connection, "PRAGMA journal_mode = WAL");
  const bool isAnswered = journal.statement && sqlite3_step(journal.statement.get()) == SQLITE_ROW;
  if (isAnswered && bytesOf(journal.statement.get(), 0) == "wal") {
    execute(connection, "PRAGMA synchronous = NORMAL");
  }
}

SettingsState readFrom(sqlite3* connection, SettingValues& values) {
  const SettingsState state = claimDatabase(connection);
  return state == SettingsState::usable ? readSettings(connection, values) : state;
}

Attempt openForWriting(const fs::path& file) {
  Attempt attempt;
  SqliteConnection connection = openSqlite(sqliteUri(file, "mode=rw"), SQLITE_OPEN_READWRITE);
  if (!connection) { return attempt; }
  sqlite3_busy_timeout(connection.get(), longestWaitAtStartInMilliseconds);
  attempt.state = readFrom(connection.get(), attempt.settings.values);
  if (attempt.state == SettingsState::damaged) {
    // Closing must not fold the log into the file: what is set aside is kept as it was found.
    sqlite3_db_config(connection.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  } else if (attempt.state == SettingsState::usable) {
    chooseJournal(connection.get());
    sqlite3_busy_timeout(connection.get(), longestWaitInMilliseconds);
    attempt.settings.connection = std::move(connection);
  }
  return attempt;
}

/// In a folder that cannot be written SQLite has no place for its log and refuses to read, unless
/// it is told that nobody else writes.
OpenedSettings openUnchangeable(const fs::path& file) {
  OpenedSettings settings;
  const SqliteConnection connection =
      openSqlite(sqliteUri(file, "mode=ro&immutable=1"), SQLITE_OPEN_READONLY);
  if (connection && readFrom(connection.get(), settings.values) != SettingsState::usable) {
    settings.values.clear();
  }
  return settings;
}

/// False where something stands that is not for us to touch, a device say.
bool isFreeForFile(const fs::path& file) {
  std::error_code ignored;
  const fs::file_status status = fs::status(file, ignored);
  if (fs::is_directory(status)) { return setAside(file); }
  return !fs::exists(status) || fs::is_regular_file(status);
}

}  // namespace

OpenedSettings openSettings(const fs::path& file) {
  if (!isFreeForFile(file)) { return {}; }
  createPrivateFile(file);
  Attempt attempt = openForWriting(file);
  if (attempt.state == SettingsState::damaged && setAside(file)) {
    createPrivateFile(file);
    attempt = openForWriting(file);
  }
  switch (attempt.state) {
    case SettingsState::usable:
      return std::move(attempt.settings);
    case SettingsState::unavailable:
      return openUnchangeable(file);
    case SettingsState::damaged:
      return {};
  }
  return {};
}

}  // namespace orvane
