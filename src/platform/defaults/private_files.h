#pragma once

#include <filesystem>

namespace orvane {

/// Creates `file`, empty, and the folders above it that are missing, for the user's eyes only. One
/// that exists keeps its content and is closed to other users. Failures are left for the one who
/// opens the file to meet.
void createPrivateFile(const std::filesystem::path& file);

/// Gives a database file a name of its own, "settings.sqlite.set-aside-1" or the next free number,
/// together with its journals. Nothing is overwritten. False when the file is still there.
[[nodiscard]] bool setAside(const std::filesystem::path& file);

}  // namespace orvane
