#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>
#include <stdlib.h>

namespace orvane::test {
/// A folder of the test's own, gone with the object.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "orvane-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) { throw std::runtime_error("no temporary folder"); }
    path_ = pattern;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};
}  // namespace orvane::test
