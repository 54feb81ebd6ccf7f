#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/defaults/sqlite_defaults.h"
#include "support/temporary_folder.h"

namespace orvane::test {

/// A settings file in a folder that does not exist yet, seen from outside.
class SettingsFileTest : public testing::Test {
 protected:
  /// The names of all files beside the settings, in order.
  [[nodiscard]] std::vector<std::string> files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(file.parent_path())) {
      names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }
  [[nodiscard]] static std::string contentOf(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  void replaceFile(const std::string& content) const {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary | std::ios::trunc) << content;
  }

  TemporaryFolder folder;
  std::filesystem::path file = folder.path() / "config" / "orvane" / "settings.sqlite";
};

}  // namespace orvane::test
