#pragma once

#include <filesystem>

#include "platform/defaults/settings_table.h"

namespace orvane {

/// A settings file in use, and what it held.
struct OpenedSettings {
  SqliteConnection connection;  ///< nothing when no change can be kept
  SettingValues values;
};

/// Opens the settings in `file`, which is created when it is missing, readable for its owner
/// alone. What stands in its place and cannot be used is set aside under another name, with the
/// files that belong to it. Settings that cannot be read now are not written either.
[[nodiscard]] OpenedSettings openSettings(const std::filesystem::path& file);

}  // namespace orvane
