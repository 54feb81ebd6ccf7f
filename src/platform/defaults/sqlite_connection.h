#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include <sqlite3.h>

namespace orvane {

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

}  // namespace orvane
