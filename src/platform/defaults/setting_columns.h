#pragma once

#include <optional>
#include <string_view>

#include "platform/defaults/setting_value.h"
#include "platform/defaults/sqlite_connection.h"

namespace orvane {

// One value in two neighbouring columns: the name of its type, then the value itself.

/// The texts given stay alive and unchanged until the statement has been stepped.
void bindText(sqlite3_stmt* statement, int parameter, std::string_view text);
/// Binds the type's name to `typeParameter` and the value to the next one.
void bindSetting(sqlite3_stmt* statement, int typeParameter, const SettingValue& value);

/// Nothing when the columns do not fit each other.
[[nodiscard]] std::optional<SettingValue> settingOf(sqlite3_stmt* row, int typeColumn);

}  // namespace orvane
