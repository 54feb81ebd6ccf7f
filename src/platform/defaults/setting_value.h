#pragma once

#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace orvane {

struct SettingText {
  std::string text;
  bool operator==(const SettingText&) const = default;
};

struct SettingData {
  std::string bytes;
  bool operator==(const SettingData&) const = default;
};

using SettingTexts = std::vector<std::string>;

/// What one key holds.
using SettingValue = std::variant<SettingText, SettingData, bool, SettingTexts>;

using SettingValues = std::map<std::string, SettingValue, std::less<>>;

/// New values by key; nothing stands for a key that was removed.
using SettingChanges = std::map<std::string, std::optional<SettingValue>, std::less<>>;

}  // namespace orvane
