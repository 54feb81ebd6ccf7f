#include "platform/defaults/sqlite_connection.h"

#include <fmt/format.h>

namespace orvane {
namespace {

constexpr int primaryCode = 0xff;

}  // namespace

void SqliteClose::operator()(sqlite3* connection) const { sqlite3_close(connection); }
void SqliteFinalize::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

SqliteConnection openSqlite(const std::string& uri, int flags) {
  sqlite3* opened = nullptr;
  const int code =
      sqlite3_open_v2(uri.c_str(), &opened, flags | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX, nullptr);
  // SQLite hands out a connection that must be closed even when it could not open the file.
  SqliteConnection connection(opened);
  return code == SQLITE_OK ? std::move(connection) : nullptr;
}

std::string sqliteUri(const std::filesystem::path& file, std::string_view query) {
  // The empty authority keeps the beginning of "//a/b" from being read as one.
  std::string uri = file.is_absolute() ? "file://" : "file:";
  for (const char c : file.string()) {
    const bool isReserved = c == '%' || c == '?' || c == '#';
    uri += isReserved ? fmt::format("%{:02X}", static_cast<unsigned>(c)) : std::string(1, c);
  }
  return uri.append("?").append(query);
}

int execute(sqlite3* connection, const std::string& sql) {
  return sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr) & primaryCode;
}

PreparedSql prepare(sqlite3* connection, std::string_view sql) {
  sqlite3_stmt* statement = nullptr;
  const char* const text = sql.data();
  const int code =
      sqlite3_prepare_v2(connection, text, static_cast<int>(sql.size()), &statement, nullptr);
  return {.code = code & primaryCode, .statement = SqliteStatement(statement)};
}

std::string_view bytesOf(sqlite3_stmt* row, int column) {
  const void* const bytes = sqlite3_column_blob(row, column);
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(row, column));
  return size == 0 ? std::string_view() : std::string_view(static_cast<const char*>(bytes), size);
}

SqliteTransaction::SqliteTransaction(sqlite3* connection)
    : connection_(connection), beginCode_(execute(connection, "BEGIN IMMEDIATE")) {}

SqliteTransaction::~SqliteTransaction() {
  if (sqlite3_get_autocommit(connection_) == 0) { execute(connection_, "ROLLBACK"); }
}

int SqliteTransaction::commit() { return execute(connection_, "COMMIT"); }

}  // namespace orvane
