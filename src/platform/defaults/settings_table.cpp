#include "platform/defaults/settings_table.h"
#include <cstdint>
#include <filesystem>
#include <system_error>
#include <utility>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include "platform/json/json_document.h"

namespace orvane {
// Settings lie in one table, a row a key: the key, the name of the value's type, and the value in
// SQLite's own types where there is one (a list of texts is a JSON array), so that the sqlite3
// program shows and edits them. What a list has gained since it was written stands in a table of
// its own, a row a text, so that a list that only grows costs what is new. The database carries our
// application id and the version of this layout; one with another of either, or with other tables,
// is not ours to use.

namespace {
constexpr std::int64_t applicationId = 0x4F52564E;  // "ORVN"
constexpr std::int64_t schemaVersion = 1;

/// Our tables, as SQLite's own table of tables has them behind "CREATE TABLE".
constexpr std::string_view settingsTable =
    "settings (key TEXT PRIMARY KEY, type TEXT NOT NULL, value ANY NOT NULL) STRICT";
constexpr std::string_view additionsTable =
    "additions (key TEXT, position INTEGER, text TEXT NOT NULL, PRIMARY KEY (key, position))"
    " STRICT, WITHOUT ROWID";

constexpr std::string_view textType = "text";
constexpr std::string_view dataType = "data";
constexpr std::string_view booleanType = "boolean";
constexpr std::string_view textsType = "texts";

/// What SQLite says in detail stands above these bits.
constexpr int primaryCode = 0xff;

/// Statements that give no rows, or whose rows nobody wants.
int execute(sqlite3* connection, const std::string& sql) {
  return sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr);
}

struct SqliteFinalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

/// A statement that is ready to be stepped, or why it is none.
struct PreparedSql {
  int code;
  std::unique_ptr<sqlite3_stmt, SqliteFinalize> statement;

  PreparedSql(sqlite3* connection, std::string_view sql) {
    sqlite3_stmt* prepared = nullptr;
    code = sqlite3_prepare_v2(connection, sql.data(), static_cast<int>(sql.size()), &prepared,
                              nullptr);
    statement.reset(prepared);
  }
  int step() const { return statement ? sqlite3_step(statement.get()) : code; }
};

/// A transaction that is undone unless it is committed.
class SqliteTransaction {
 public:
  explicit SqliteTransaction(sqlite3* connection)
      : connection_(connection), beginCode_(execute(connection, "BEGIN IMMEDIATE")) {}
  SqliteTransaction(const SqliteTransaction&) = delete;
  SqliteTransaction& operator=(const SqliteTransaction&) = delete;
  ~SqliteTransaction() {
    if (sqlite3_get_autocommit(connection_) == 0) { execute(connection_, "ROLLBACK"); }
  }

  [[nodiscard]] int beginCode() const { return beginCode_; }
  int commit() { return execute(connection_, "COMMIT"); }

 private:
  sqlite3* connection_;
  int beginCode_;
};

/// A column of the row; valid until the next step of its statement.
std::string_view bytesOf(sqlite3_stmt* row, int column) {
  const void* const bytes = sqlite3_column_blob(row, column);
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(row, column));
  return size == 0 ? std::string_view() : std::string_view(static_cast<const char*>(bytes), size);
}

/// The text stays alive and unchanged until the statement has been stepped.
void bindText(sqlite3_stmt* statement, int parameter, std::string_view text) {
  const char* const bytes = text.data();
  sqlite3_bind_text64(statement, parameter, bytes, text.size(), SQLITE_STATIC, SQLITE_UTF8);
}

/// Binds the type's name to the parameter `type` and the value to the one after it.
struct BindSetting {
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
    const std::string json =
        nlohmann::json(value).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    const char* const bytes = json.data();
    sqlite3_bind_text64(statement, type + 1, bytes, json.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  }
};

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

/// Nothing when the type's column and the value's after it do not fit each other.
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

SettingsState stateOf(int sqliteCode) {
  switch (sqliteCode & primaryCode) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
      return SettingsState::usable;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_FORMAT:
    case SQLITE_TOOBIG:
    case SQLITE_NOMEM:  // a size that no settings have
    case SQLITE_ERROR:  // our own statements are right, so the tables are not
      return SettingsState::damaged;
    default:
      return SettingsState::unavailable;
  }
}

/// Without waiting for the disk: a power failure that takes a file which is being made takes no
/// setting with it, and the program's first window would wait as well.
SettingsState createTable(sqlite3* connection) {
  execute(connection, "PRAGMA synchronous = OFF; PRAGMA journal_mode = WAL");
  SqliteTransaction transaction(connection);
  int code = transaction.beginCode();
  if (code == SQLITE_OK) {
    code = execute(connection, fmt::format("CREATE TABLE IF NOT EXISTS {};"
                                           "PRAGMA application_id = {}; PRAGMA user_version = {};",
                                           settingsTable, applicationId, schemaVersion));
  }
  if (code == SQLITE_OK) { code = transaction.commit(); }
  return stateOf(code);
}

/// SQLite reads a file that was cut off within a page as if zeros followed, which would change a
/// value without a word. A log that is not empty may hold that page, and then nothing is missing.
bool endsWithinPage(sqlite3* connection) {
  const char* const file = sqlite3_db_filename(connection, "main");
  const PreparedSql page(connection, "PRAGMA page_size");
  if (page.step() != SQLITE_ROW) { return false; }
  const auto pageSize = static_cast<std::uintmax_t>(sqlite3_column_int64(page.statement.get(), 0));
  std::error_code error;
  const std::uintmax_t log = std::filesystem::file_size(sqlite3_filename_wal(file), error);
  const bool hasLog = !error && log > 0;
  const std::uintmax_t size = std::filesystem::file_size(file, error);
  return !error && !hasLog && size % pageSize != 0;
}

/// SQLite's own check does not look at all of what it says of the tables: one whose name is bytes
/// instead of text is there for one statement and not for the next.
bool hasForeignParts(sqlite3* connection) {
  const PreparedSql foreign(
      connection, fmt::format("SELECT type, name, tbl_name, sql FROM sqlite_schema EXCEPT VALUES"
                              " ('table', 'settings', 'settings', 'CREATE TABLE {}'),"
                              " ('index', 'sqlite_autoindex_settings_1', 'settings', NULL),"
                              " ('table', 'additions', 'additions', 'CREATE TABLE {}')",
                              settingsTable, additionsTable));
  return foreign.step() == SQLITE_ROW;
}

SettingsState checkStructure(sqlite3* connection) {
  if (endsWithinPage(connection) || hasForeignParts(connection)) { return SettingsState::damaged; }
  const PreparedSql check(connection, "PRAGMA integrity_check(1)");
  const int code = check.step();
  const bool isBroken = code == SQLITE_ROW && bytesOf(check.statement.get(), 0) != "ok";
  return isBroken ? SettingsState::damaged : stateOf(code);
}

/// Makes sure that the database is one of ours; an empty one becomes one.
SettingsState claimDatabase(sqlite3* connection) {
  const PreparedSql owner(connection,
                          "SELECT application_id, user_version,"
                          " (SELECT count(*) FROM sqlite_schema)"
                          " FROM pragma_application_id, pragma_user_version");
  const int code = owner.step();
  if (code != SQLITE_ROW) { return stateOf(code); }
  const auto column = [&](int index) { return sqlite3_column_int64(owner.statement.get(), index); };
  const std::int64_t application = column(0);
  const std::int64_t version = column(1);
  const bool isEmpty = column(2) == 0;
  sqlite3_reset(owner.statement.get());
  const bool isNobodys = application == 0 && version == 0 && isEmpty;
  const bool isOurs = application == applicationId && version == schemaVersion;
  if (!isNobodys && !isOurs) { return SettingsState::damaged; }
  // Also of one that seems to hold nothing: what is to be set aside must not be changed before.
  const SettingsState state = checkStructure(connection);
  return isNobodys && state == SettingsState::usable ? createTable(connection) : state;
}

bool hasAdditions(sqlite3* connection) {
  const PreparedSql table(connection, "SELECT 1 FROM sqlite_schema WHERE name = 'additions'");
  return table.step() == SQLITE_ROW;
}

/// Appends to each list what it has gained.
int readAdditions(sqlite3* connection, SettingValues& values) {
  const PreparedSql all(connection, "SELECT key, text FROM additions ORDER BY key, position");
  int code = all.step();
  for (; code == SQLITE_ROW; code = all.step()) {
    const auto list = values.find(bytesOf(all.statement.get(), 0));
    SettingTexts* const texts =
        list == values.end() ? nullptr : std::get_if<SettingTexts>(&list->second);
    if (texts) { texts->emplace_back(bytesOf(all.statement.get(), 1)); }
  }
  return code;
}

int writeAdditions(sqlite3* connection, const std::string& key, std::size_t position,
                   const SettingTexts& texts) {
  int code = execute(connection, fmt::format("CREATE TABLE IF NOT EXISTS {}", additionsTable));
  if (code != SQLITE_OK) { return code; }
  for (code = SQLITE_DONE; code == SQLITE_DONE && position < texts.size(); ++position) {
    const PreparedSql addition(connection, "INSERT OR REPLACE INTO additions VALUES (?1, ?2, ?3)");
    if (addition.statement) {
      bindText(addition.statement.get(), 1, key);
      sqlite3_bind_int64(addition.statement.get(), 2, static_cast<sqlite3_int64>(position));
      bindText(addition.statement.get(), 3, texts[position]);
    }
    code = addition.step();
  }
  return code;
}

int removeAdditions(sqlite3* connection, const std::string& key) {
  const PreparedSql removal(connection, "DELETE FROM additions WHERE key = ?1");
  if (removal.statement) { bindText(removal.statement.get(), 1, key); }
  return removal.step();
}

int writeWhole(sqlite3* connection, const std::string& key,
               const std::optional<SettingValue>& value) {
  if (hasAdditions(connection)) {
    if (const int code = removeAdditions(connection, key); code != SQLITE_DONE) { return code; }
  }
  const PreparedSql change(
      connection, value ? "INSERT OR REPLACE INTO settings (key, type, value) VALUES (?1, ?2, ?3)"
                        : "DELETE FROM settings WHERE key = ?1");
  if (change.statement) { bindText(change.statement.get(), 1, key); }
  if (change.statement && value) { std::visit(BindSetting{change.statement.get(), 2}, *value); }
  return change.step();
}

int writeChange(sqlite3* connection, const std::string& key, const SettingChange& change) {
  const auto* const texts = change.value ? std::get_if<SettingTexts>(&*change.value) : nullptr;
  return texts && change.textsInFile > 0
             ? writeAdditions(connection, key, change.textsInFile, *texts)
             : writeWhole(connection, key, change.value);
}
}  // namespace

void SqliteClose::operator()(sqlite3* connection) const { sqlite3_close(connection); }

SqliteConnection openSqlite(const std::filesystem::path& file, SqliteAccess access) {
  // The empty authority keeps the beginning of "//a/b" from being read as one.
  std::string uri = file.is_absolute() ? "file://" : "file:";
  for (const char c : file.string()) {
    const bool isReserved = c == '%' || c == '?' || c == '#';
    uri += isReserved ? fmt::format("%{:02X}", static_cast<unsigned>(c)) : std::string(1, c);
  }
  // Of a page that is read or written once, no room for twenty is needed. It is refused once SQLite
  // is in use, which is after the first call.
  sqlite3_config(SQLITE_CONFIG_PAGECACHE, nullptr, 0, 0);
  const bool isWritten = access == SqliteAccess::readWrite;
  uri += isWritten ? "?mode=rw" : "?mode=ro&immutable=1";
  const int flags = isWritten ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY;
  sqlite3* opened = nullptr;
  const int code =
      sqlite3_open_v2(uri.c_str(), &opened, flags | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX, nullptr);
  // SQLite hands out a connection that must be closed even when it could not open the file.
  SqliteConnection connection(opened);
  return code == SQLITE_OK ? std::move(connection) : nullptr;
}

void writeAhead(sqlite3* connection) {
  const PreparedSql journal(connection, "PRAGMA journal_mode = WAL");
  const bool isAnswered = journal.step() == SQLITE_ROW;
  const bool isAhead = isAnswered && bytesOf(journal.statement.get(), 0) == "wal";
  execute(connection, isAhead ? "PRAGMA synchronous = NORMAL" : "PRAGMA synchronous = FULL");
}

SettingsState readSettings(sqlite3* connection, SettingValues& values) {
  const SettingsState state = claimDatabase(connection);
  if (state != SettingsState::usable) { return state; }
  const PreparedSql all(connection, "SELECT key, type, value FROM settings");
  int code = all.step();
  for (; code == SQLITE_ROW; code = all.step()) {
    sqlite3_stmt* const row = all.statement.get();
    if (std::optional<SettingValue> value = settingOf(row, 1)) {
      values.insert_or_assign(std::string(bytesOf(row, 0)), *std::move(value));
    }
  }
  if (code == SQLITE_DONE && hasAdditions(connection)) { code = readAdditions(connection, values); }
  return stateOf(code);
}

bool writeSettings(sqlite3* connection, const SettingChanges& changes) {
  SqliteTransaction transaction(connection);
  if (transaction.beginCode() != SQLITE_OK) { return false; }
  for (const auto& [key, change] : changes) {
    if (writeChange(connection, key, change) != SQLITE_DONE) { return false; }
  }
  return transaction.commit() == SQLITE_OK;
}
}  // namespace orvane
