#pragma once

#include "platform/defaults/setting_value.h"
#include "platform/defaults/sqlite_connection.h"

namespace orvane {

// How the settings lie in a database: one row a key, its value in SQLite's own types where there
// is one (a list of texts is a JSON array), so that the sqlite3 program shows and edits them.

/// Whether a database can be used for settings.
enum class SettingsState {
  usable,
  damaged,      ///< not a database, a broken one, another program's or a later version's
  unavailable,  ///< it may well be sound but cannot be read or written now
};

/// What a result code of SQLite says about the database.
[[nodiscard]] SettingsState stateOf(int sqliteCode);

/// Makes sure that the database is one of ours; an empty one becomes one. Another program's is
/// left as it is.
[[nodiscard]] SettingsState claimDatabase(sqlite3* connection);

/// Reads every setting. A row that makes no sense counts as missing.
[[nodiscard]] SettingsState readSettings(sqlite3* connection, SettingValues& values);

/// Writes all changes or, when it fails, none.
[[nodiscard]] bool writeSettings(sqlite3* connection, const SettingChanges& changes);

}  // namespace orvane
