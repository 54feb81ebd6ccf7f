#include "services/working_directory.h"
#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>
#include <utility>

namespace orvane::services {
WorkingDirectory::WorkingDirectory(std::filesystem::path given)
    : path_(std::move(given)), isTemporary_(path_.empty()) {
  if (!isTemporary_) {
    std::filesystem::create_directories(path_);
    return;
  }
  std::string name = std::filesystem::temp_directory_path() / "orvane-services-XXXXXX";
  if (::mkdtemp(name.data()) == nullptr) {
    throw std::filesystem::filesystem_error("mkdtemp", name,
                                            std::error_code(errno, std::generic_category()));
  }
  path_ = name;
}

WorkingDirectory::~WorkingDirectory() {
  std::error_code ignored;
  if (isTemporary_) { std::filesystem::remove_all(path_, ignored); }
}
}  // namespace orvane::services
