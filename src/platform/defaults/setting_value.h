#pragma once

#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

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

/// A list of texts.
using SettingTexts = std::vector<std::string>;

/// What one key holds.
using SettingValue = std::variant<SettingText, SettingData, bool, SettingTexts>;

/// All settings by key.
using SettingValues = std::map<std::string, SettingValue, std::less<>>;

/// New values by key; nothing stands for a key that was removed.
using SettingChanges = std::map<std::string, std::optional<SettingValue>, std::less<>>;

}  // namespace orvane
