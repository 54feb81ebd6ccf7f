#include "platform/defaults/settings_file.h"

#include <system_error>
#include <utility>

#include "platform/defaults/private_files.h"
#include "platform/defaults/settings_table.h"

namespace orvane {
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
