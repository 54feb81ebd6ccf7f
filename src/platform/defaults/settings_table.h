#pragma once

#include <cstddef>
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

using SettingTexts = std::vector<std::string>;

/// What one key holds.
using SettingValue = std::variant<SettingText, SettingData, bool, SettingTexts>;

/// All settings by key.
using SettingValues = std::map<std::string, SettingValue, std::less<>>;

/// The new value of a key.
struct SettingChange {
  std::optional<SettingValue> value;  ///< nothing: the key was removed
  /// Of a list that has grown: how many of its first texts the file holds already, as this list's.
  std::size_t textsInFile = 0;
};

/// What is new, by key.
using SettingChanges = std::map<std::string, SettingChange, std::less<>>;

struct SqliteClose {
  void operator()(sqlite3* connection) const;
};
using SqliteConnection = std::unique_ptr<sqlite3, SqliteClose>;

/// How a database file is opened.
enum class SqliteAccess {
  readWrite,
  /// As one that nobody writes, which SQLite then reads without a file of its own beside it.
  unchangeable,
};

/// Nothing when there is no such file or it cannot be opened that way.
[[nodiscard]] SqliteConnection openSqlite(const std::filesystem::path& file, SqliteAccess access);

/// Lets a change be written without waiting for the disk, where the file system allows that.
void writeAhead(sqlite3* connection);

/// Whether a database can be used for settings.
enum class SettingsState {
  usable,
  damaged,      ///< not a database, a broken one, or one that is not this version's own
  unavailable,  ///< it may well be sound but cannot be read or written now
};

/// Reads every setting. An empty database becomes one for settings, any other that is not one of
/// ours is left as it is. A row that makes no sense counts as missing.
[[nodiscard]] SettingsState readSettings(sqlite3* connection, SettingValues& values);

/// Writes all changes or, when it fails, none.
[[nodiscard]] bool writeSettings(sqlite3* connection, const SettingChanges& changes);
}  // namespace orvane
