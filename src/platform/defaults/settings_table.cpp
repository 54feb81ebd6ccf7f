#include "platform/defaults/settings_table.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "platform/json/json_document.h"

namespace orvane {

// One value in two neighbouring columns: the name of its type, then the value itself.

/// The texts given stay alive and unchanged until the statement has been stepped.
void bindText(sqlite3_stmt* statement, int parameter, std::string_view text);
/// Binds the type's name to `typeParameter` and the value to the next one.
void bindSetting(sqlite3_stmt* statement, int typeParameter, const SettingValue& value);

/// Nothing when the columns do not fit each other.
[[nodiscard]] std::optional<SettingValue> settingOf(sqlite3_stmt* row, int typeColumn);

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

namespace {

constexpr std::string_view textType = "text";
constexpr std::string_view dataType = "data";
constexpr std::string_view booleanType = "boolean";
constexpr std::string_view textsType = "texts";

std::string jsonOf(const SettingTexts& texts) {
  return nlohmann::json(texts).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::optional<SettingValue> textsOf(std::string_view json) {
  const std::optional<JsonDocument> document = JsonDocument::parse(json);
  if (!document || !document->root().isArray()) { return std::nullopt; }
  SettingTexts texts;
  for (const JsonMember& element : document->root()) {
    const std::optional<std::string_view> text = element.value.text();
    if (!text) { return std::nullopt; }
    texts.emplace_back(*text);
  }
  return texts;
}

/// Binds the type's name and the value, whichever type it is.
struct Bind {
  sqlite3_stmt* statement;
  int type;

  void operator()(const SettingText& value) const {
    bindText(statement, type, textType);
    bindText(statement, type + 1, value.text);
  }
  void operator()(const SettingData& value) const {
    bindText(statement, type, dataType);
    const char* const bytes = value.bytes.data();
    sqlite3_bind_blob64(statement, type + 1, bytes, value.bytes.size(), SQLITE_STATIC);
  }
  void operator()(bool value) const {
    bindText(statement, type, booleanType);
    sqlite3_bind_int(statement, type + 1, value ? 1 : 0);
  }
  void operator()(const SettingTexts& value) const {
    bindText(statement, type, textsType);
    const std::string json = jsonOf(value);
    const char* const bytes = json.data();
    sqlite3_bind_text64(statement, type + 1, bytes, json.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  }
};

}  // namespace

void bindText(sqlite3_stmt* statement, int parameter, std::string_view text) {
  const char* const bytes = text.data();
  sqlite3_bind_text64(statement, parameter, bytes, text.size(), SQLITE_STATIC, SQLITE_UTF8);
}

void bindSetting(sqlite3_stmt* statement, int typeParameter, const SettingValue& value) {
  std::visit(Bind{.statement = statement, .type = typeParameter}, value);
}

std::optional<SettingValue> settingOf(sqlite3_stmt* row, int typeColumn) {
  const int valueColumn = typeColumn + 1;
  const std::string_view type = bytesOf(row, typeColumn);
  const int storage = sqlite3_column_type(row, valueColumn);
  if (type == booleanType && storage == SQLITE_INTEGER) {
    return sqlite3_column_int64(row, valueColumn) != 0;
  }
  const std::string_view value = bytesOf(row, valueColumn);
  if (type == textType && storage == SQLITE_TEXT) { return SettingText{std::string(value)}; }
  if (type == dataType && storage == SQLITE_BLOB) { return SettingData{std::string(value)}; }
  if (type == textsType && storage == SQLITE_TEXT) { return textsOf(value); }
  return std::nullopt;
}

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
