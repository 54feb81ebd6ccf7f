#pragma once

#include <filesystem>
#include "platform/defaults/settings_table.h"
#include "platform/defaults/user_defaults.h"

namespace orvane {
/// The settings' place: below XDG_CONFIG_HOME where that names a folder from the root on, as its
/// specification demands, else below the home folder's .config.
[[nodiscard]] std::filesystem::path settingsFile(std::string_view configHome,
                                                 const std::filesystem::path& home);

/// Settings in one SQLite file. It is read once, at construction, so that reading never waits;
/// what another program changes meanwhile is seen after the next start. A change is in the file
/// when its call returns, and stays there whatever happens to the process.
///
/// A file that is damaged, another program's or a later version's is set aside under another name
/// beside it, never deleted, and the settings start empty. Where the file cannot be read or
/// written, now or for good (no rights, no room, locked by another process for more than a
/// moment), changes live in memory; each later change tries to save them too.
class SqliteDefaults final : public UserDefaults {
 public:
  /// Creates `file` and its folder when they are missing, and closes both to other users.
  explicit SqliteDefaults(std::filesystem::path file);
  ~SqliteDefaults() override;
  SqliteDefaults(const SqliteDefaults&) = delete;
  SqliteDefaults& operator=(const SqliteDefaults&) = delete;

  [[nodiscard]] std::optional<std::string> text(std::string_view key) const override;
  [[nodiscard]] std::optional<std::string> data(std::string_view key) const override;
  [[nodiscard]] std::optional<bool> boolean(std::string_view key) const override;
  [[nodiscard]] std::optional<std::vector<std::string>> texts(std::string_view key) const override;

  void setText(std::string_view key, std::string_view value) override;
  void setData(std::string_view key, std::string_view bytes) override;
  void setBoolean(std::string_view key, bool value) override;
  void setTexts(std::string_view key, const std::vector<std::string>& values) override;
  void remove(std::string_view key) override;

 private:
  template <class T>
  [[nodiscard]] const T* find(std::string_view key) const;
  void set(std::string_view key, SettingValue value);
  /// How many of the texts of `value`, a list that begins with `old`, are in the file.
  [[nodiscard]] std::size_t textsKept(std::string_view key, const SettingValue& old,
                                      const SettingValue& value) const;
  void open(int longestWait);
  SettingsState openForWriting(int longestWait);
  void openUnchangeable();
  void take(SettingValues values);
  void save();

  std::filesystem::path file_;

  SqliteConnection connection_;  ///< nothing while no change can be kept
  SettingValues values_;
  SettingChanges unsaved_;
};
}  // namespace orvane
