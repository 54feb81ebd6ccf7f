#pragma once

#include <filesystem>

namespace orvane::services {
/// A folder to write to: a given one, made where it is missing and left behind, or a temporary
/// one that is removed at the end. Throws std::filesystem::filesystem_error.
class WorkingDirectory {
 public:
  /// An empty path asks for a temporary folder.
  explicit WorkingDirectory(std::filesystem::path given);
  ~WorkingDirectory();
  WorkingDirectory(const WorkingDirectory&) = delete;
  WorkingDirectory& operator=(const WorkingDirectory&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
  bool isTemporary_;
};
}  // namespace orvane::services
