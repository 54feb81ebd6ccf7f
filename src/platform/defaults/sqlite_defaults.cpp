#include "platform/defaults/sqlite_defaults.h"

#include <utility>

#include "platform/defaults/settings_table.h"

namespace orvane {

SqliteDefaults::SqliteDefaults(const std::filesystem::path& file) : settings_(openSettings(file)) {}

SqliteDefaults::~SqliteDefaults() { save(); }

template <class T>
const T* SqliteDefaults::find(std::string_view key) const {
  const auto found = settings_.values.find(key);
  return found == settings_.values.end() ? nullptr : std::get_if<T>(&found->second);
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

void SqliteDefaults::remove(std::string_view key) {
  const auto found = settings_.values.find(key);
  if (found != settings_.values.end()) {
    settings_.values.erase(found);
    unsaved_.insert_or_assign(std::string(key), std::nullopt);
  }
  save();
}

void SqliteDefaults::set(std::string_view key, SettingValue value) {
  const auto found = settings_.values.find(key);
  if (found == settings_.values.end() || found->second != value) {
    unsaved_.insert_or_assign(std::string(key), value);
    settings_.values.insert_or_assign(std::string(key), std::move(value));
  }
  save();
}

void SqliteDefaults::save() {
  if (settings_.connection && !unsaved_.empty() &&
      writeSettings(settings_.connection.get(), unsaved_)) {
    unsaved_.clear();
  }
}

}  // namespace orvane
