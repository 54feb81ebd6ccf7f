#include "platform/defaults/settings_table.h"

#include <cstdint>
#include <utility>

#include <fmt/format.h>

#include "platform/defaults/setting_columns.h"

namespace orvane {
namespace {

constexpr std::int64_t applicationId = 0x4F52564E;  // "ORVN"
constexpr std::int64_t schemaVersion = 1;

std::string schemaSql() {
  return fmt::format(
      "CREATE TABLE IF NOT EXISTS settings"
      " (key TEXT PRIMARY KEY, type TEXT NOT NULL, value ANY NOT NULL) STRICT;"
      "PRAGMA application_id = {};"
      "PRAGMA user_version = {};",
      applicationId, schemaVersion);
}

SettingsState createSettings(sqlite3* connection) {
  SqliteTransaction transaction(connection);
  int code = transaction.beginCode();
  if (code == SQLITE_OK) { code = execute(connection, schemaSql()); }
  if (code == SQLITE_OK) { code = transaction.commit(); }
  return stateOf(code);
}

SettingsState checkStructure(sqlite3* connection) {
  const PreparedSql check = prepare(connection, "PRAGMA quick_check(1)");
  const int code = check.statement ? sqlite3_step(check.statement.get()) : check.code;
  if (code == SQLITE_ROW && bytesOf(check.statement.get(), 0) != "ok") {
    return SettingsState::damaged;
  }
  return stateOf(code);
}

int writeChange(sqlite3* connection, const std::string& key,
                const std::optional<SettingValue>& value) {
  const PreparedSql change = prepare(
      connection, value ? "INSERT OR REPLACE INTO settings (key, type, value) VALUES (?1, ?2, ?3)"
                        : "DELETE FROM settings WHERE key = ?1");
  if (!change.statement) { return change.code; }
  bindText(change.statement.get(), 1, key);
  if (value) { bindSetting(change.statement.get(), 2, *value); }
  return sqlite3_step(change.statement.get());
}

}  // namespace

SettingsState stateOf(int sqliteCode) {
  switch (sqliteCode & 0xff) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
      return SettingsState::usable;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_FORMAT:
    case SQLITE_TOOBIG:
    case SQLITE_ERROR:  // our own statements are right, so the tables are not
      return SettingsState::damaged;
    default:
      return SettingsState::unavailable;
  }
}

SettingsState claimDatabase(sqlite3* connection) {
  const PreparedSql owner = prepare(connection,
                                    "SELECT application_id, user_version,"
                                    " (SELECT count(*) FROM sqlite_schema)"
                                    " FROM pragma_application_id, pragma_user_version");
  const int code = owner.statement ? sqlite3_step(owner.statement.get()) : owner.code;
  if (code != SQLITE_ROW) { return stateOf(code); }
  const auto column = [&](int index) { return sqlite3_column_int64(owner.statement.get(), index); };
  const std::int64_t application = column(0);
  const std::int64_t version = column(1);
  const bool isEmpty = column(2) == 0;
  sqlite3_reset(owner.statement.get());
  if (application == 0 && version == 0 && isEmpty) { return createSettings(connection); }
  if (application != applicationId || version != schemaVersion) { return SettingsState::damaged; }
  return checkStructure(connection);
}

SettingsState readSettings(sqlite3* connection, SettingValues& values) {
  const PreparedSql all = prepare(connection, "SELECT key, type, value FROM settings");
  int code = all.code;
  while (all.statement && (code = sqlite3_step(all.statement.get())) == SQLITE_ROW) {
    sqlite3_stmt* const row = all.statement.get();
    if (std::optional<SettingValue> value = settingOf(row, 1)) {
      values.insert_or_assign(std::string(bytesOf(row, 0)), *std::move(value));
    }
  }
  return stateOf(code);
}

bool writeSettings(sqlite3* connection, const SettingChanges& changes) {
  SqliteTransaction transaction(connection);
  if (transaction.beginCode() != SQLITE_OK) { return false; }
  for (const auto& [key, value] : changes) {
    if (writeChange(connection, key, value) != SQLITE_DONE) { return false; }
  }
  return transaction.commit() == SQLITE_OK;
}

}  // namespace orvane
