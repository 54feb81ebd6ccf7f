#include "platform/defaults/sqlite_defaults.h"
#include <algorithm>
#include <array>
#include <system_error>
#include <utility>
#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvane {
// The file's life. It is created by us and not by SQLite, so that nobody else can read it at any
// moment. What stands in its place and is no settings file of ours is renamed to the next free
// "settings.sqlite.set-aside-1", with the journals that belong to it and exactly as it was found;
// a new file then takes its place. What only cannot be read now, because it is locked or the disk
// fails, is left alone and not written either, or it would be lost by the next change.
//
// Changes go through a write-ahead log: a killed process loses nothing, a power failure at most
// the last changes, and neither harms the file. Where the file system has no place for such a log
// SQLite stays with its rollback journal, and with waiting for the disk.

namespace {
namespace fs = std::filesystem;

constexpr int longestWaitAtStartInMilliseconds = 500;
constexpr int longestWaitInMilliseconds = 50;
constexpr int mostFilesSetAside = 10'000;

void createPrivateFolder(const fs::path& folder) {
  std::error_code ignored;
  if (folder.empty() || fs::exists(folder, ignored)) { return; }
  createPrivateFolder(folder.parent_path());
  ::mkdir(folder.c_str(), S_IRWXU);
}

/// What a link leads to is the user's own arrangement and keeps its rights.
void closeToOthers(const fs::path& path) {
  std::error_code ignored;
  if (fs::is_symlink(path, ignored)) { return; }
  fs::permissions(path, fs::perms::group_all | fs::perms::others_all, fs::perm_options::remove,
                  ignored);
}

/// Creates `file`, empty, and the folders above it that are missing. One that exists keeps its
/// content; it and its folder are closed to other users. Failures are left for the one who opens
/// the file to meet.
void createPrivateFile(const fs::path& file) {
  createPrivateFolder(file.parent_path());
  const int descriptor = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (descriptor < 0) { return; }
  ::close(descriptor);
  closeToOthers(file.parent_path());
  closeToOthers(file);
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

/// Nothing is overwritten. False when the file is still there.
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

/// Whether the header forbids to write what the file's rights allow.
bool isInUnwritableFormat(sqlite3* connection, const fs::path& file) {
  return sqlite3_db_readonly(connection, "main") == 1 &&
         ::faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) == 0;
}

/// False where something stands that is not for us to touch, a device say.
bool isFreeForFile(const fs::path& file) {
  std::error_code ignored;
  const fs::file_status status = fs::status(file, ignored);
  if (fs::is_directory(status)) { return setAside(file); }
  return !fs::exists(status) || fs::is_regular_file(status);
}
}  // namespace

fs::path settingsFile(std::string_view configHome, const fs::path& home) {
  const fs::path folder(configHome);
  return (folder.is_absolute() ? folder : home / ".config") / "orvane" / "settings.sqlite";
}

SqliteDefaults::SqliteDefaults(fs::path file) : file_(std::move(file)) {
  open(longestWaitAtStartInMilliseconds);
}

SqliteDefaults::~SqliteDefaults() { save(); }

void SqliteDefaults::open(int longestWait) {
  if (!isFreeForFile(file_)) { return; }
  createPrivateFile(file_);
  SettingsState state = openForWriting(longestWait);
  if (state == SettingsState::damaged && setAside(file_)) {
    createPrivateFile(file_);
    state = openForWriting(longestWait);
  }
  if (state == SettingsState::unavailable) { openUnchangeable(); }
}

SettingsState SqliteDefaults::openForWriting(int longestWait) {
  SqliteConnection connection = openSqlite(file_, SqliteAccess::readWrite);
  if (!connection) { return SettingsState::unavailable; }
  sqlite3_busy_timeout(connection.get(), longestWait);
  SettingValues values;
  SettingsState state = readSettings(connection.get(), values);
  if (isInUnwritableFormat(connection.get(), file_)) { state = SettingsState::damaged; }
  if (state == SettingsState::damaged) {
    // Closing must not fold the log into the file.
    sqlite3_db_config(connection.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  } else if (state == SettingsState::usable) {
    writeAhead(connection.get());
    sqlite3_busy_timeout(connection.get(), longestWaitInMilliseconds);
    sqlite3_db_release_memory(connection.get());  // the pages of the one reading
    connection_ = std::move(connection);
    take(std::move(values));
  }
  return state;
}

// In a folder that cannot be written SQLite has no place for its log and refuses to read, unless
// it is told that nobody else writes.
void SqliteDefaults::openUnchangeable() {
  const SqliteConnection connection = openSqlite(file_, SqliteAccess::unchangeable);
  SettingValues values;
  if (connection && readSettings(connection.get(), values) == SettingsState::usable) {
    take(std::move(values));
  }
}

/// What the file says, but for what has changed since.
void SqliteDefaults::take(SettingValues values) {
  values_ = std::move(values);
  for (auto& [key, change] : unsaved_) {
    change.textsInFile = 0;  // another file's
    if (change.value) {
      values_.insert_or_assign(key, *change.value);
    } else {
      values_.erase(key);
    }
  }
}

void SqliteDefaults::save() {
  if (unsaved_.empty()) { return; }
  if (!connection_) { open(longestWaitInMilliseconds); }
  if (connection_ && writeSettings(connection_.get(), unsaved_)) { unsaved_.clear(); }
}

template <class T>
const T* SqliteDefaults::find(std::string_view key) const {
  const auto found = values_.find(key);
  return found == values_.end() ? nullptr : std::get_if<T>(&found->second);
}

std::optional<std::string> SqliteDefaults::text(std::string_view key) const {
  const auto* const value = find<SettingText>(key);
  return value ? std::optional(value->text) : std::nullopt;
}
std::optional<std::string> SqliteDefaults::data(std::string_view key) const {
  const auto* const value = find<SettingData>(key);
  return value ? std::optional(value->bytes) : std::nullopt;
}
std::optional<bool> SqliteDefaults::boolean(std::string_view key) const {
  const auto* const value = find<bool>(key);
  return value ? std::optional(*value) : std::nullopt;
}
std::optional<std::vector<std::string>> SqliteDefaults::texts(std::string_view key) const {
  const auto* const value = find<SettingTexts>(key);
  return value ? std::optional(*value) : std::nullopt;
}

void SqliteDefaults::setText(std::string_view key, std::string_view value) {
  set(key, SettingText{std::string(value)});
}
void SqliteDefaults::setData(std::string_view key, std::string_view bytes) {
  set(key, SettingData{std::string(bytes)});
}
void SqliteDefaults::setBoolean(std::string_view key, bool value) { set(key, value); }
void SqliteDefaults::setTexts(std::string_view key, const std::vector<std::string>& values) {
  set(key, values);
}

void SqliteDefaults::set(std::string_view key, SettingValue value) {
  const auto found = values_.find(key);
  if (found == values_.end() || found->second != value) {
    const std::size_t textsInFile =
        found == values_.end() ? 0 : textsKept(key, found->second, value);
    unsaved_.insert_or_assign(std::string(key), SettingChange{value, textsInFile});
    values_.insert_or_assign(std::string(key), std::move(value));
  }
  save();
}

std::size_t SqliteDefaults::textsKept(std::string_view key, const SettingValue& old,
                                      const SettingValue& value) const {
  const auto* const before = std::get_if<SettingTexts>(&old);
  const auto* const after = std::get_if<SettingTexts>(&value);
  if (!before || !after || before->size() > after->size()) { return 0; }
  if (!std::equal(before->begin(), before->end(), after->begin())) { return 0; }
  const auto unsaved = unsaved_.find(key);
  return unsaved == unsaved_.end() ? before->size() : unsaved->second.textsInFile;
}

void SqliteDefaults::remove(std::string_view key) {
  // A file that could not be read may hold what is not among the values.
  if (values_.contains(key) || !connection_) {
    unsaved_.insert_or_assign(std::string(key), SettingChange{});
  }
  if (const auto found = values_.find(key); found != values_.end()) { values_.erase(found); }
  save();
}
}  // namespace orvane
