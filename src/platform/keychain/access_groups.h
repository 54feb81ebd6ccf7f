#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvane {

/// The access groups that the build may use, from the setting that names them separated by
/// semicolons. Blanks around a name do not belong to it; empty names are left out.
[[nodiscard]] std::vector<std::string> accessGroupsFromSetting(std::string_view semicolonSeparated);

}  // namespace orvane
