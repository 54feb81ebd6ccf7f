#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <sqlite3.h>

namespace orvane {

/// A text, of any bytes.
struct SettingText {
  std::string text;
  bool operator==(const SettingText&) const = default;
};

/// Bytes, a type apart from text: a read of the one never finds the other.
struct SettingData {
  std::string bytes;
  bool operator==(const SettingData&) const = default;
};

/// A list of texts.
using SettingTexts = std::vector<std::string>;

/// What one key holds.
using SettingValue = std::variant<SettingText, SettingData, bool, SettingTexts>;

/// All settings by key.
using SettingValues = std::map<std::string, SettingValue, std::less<>>;

/// New values by key; nothing stands for a key that was removed.
using SettingChanges = std::map<std::string, std::optional<SettingValue>, std::less<>>;

// The little of SQLite that the settings need. Functions that can fail give SQLite's result code,
// without its details.

struct SqliteClose {
  void operator()(sqlite3* connection) const;
};
struct SqliteFinalize {
  void operator()(sqlite3_stmt* statement) const;
};
using SqliteConnection = std::unique_ptr<sqlite3, SqliteClose>;
using SqliteStatement = std::unique_ptr<sqlite3_stmt, SqliteFinalize>;

/// `uri` is a file URI. Nothing when there is no such file or it cannot be read.
[[nodiscard]] SqliteConnection openSqlite(const std::string& uri, int flags);

/// A file URI of `file` with the parameters of `query`.
[[nodiscard]] std::string sqliteUri(const std::filesystem::path& file, std::string_view query);

/// Statements that give no rows, or whose rows nobody wants.
int execute(sqlite3* connection, const std::string& sql);

/// A statement that is ready to be stepped, or why it is none.
struct PreparedSql {
  int code;
  SqliteStatement statement;  ///< nothing unless `code` is SQLITE_OK
};
[[nodiscard]] PreparedSql prepare(sqlite3* connection, std::string_view sql);

/// The first column of a row, and so on; valid until the next step of the statement.
[[nodiscard]] std::string_view bytesOf(sqlite3_stmt* row, int column);

/// A transaction that is undone unless it is committed.
class SqliteTransaction {
 public:
  explicit SqliteTransaction(sqlite3* connection);
  SqliteTransaction(const SqliteTransaction&) = delete;
  SqliteTransaction& operator=(const SqliteTransaction&) = delete;
  ~SqliteTransaction();

  [[nodiscard]] int beginCode() const { return beginCode_; }
  int commit();

 private:
  sqlite3* connection_;
  int beginCode_;
};

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
