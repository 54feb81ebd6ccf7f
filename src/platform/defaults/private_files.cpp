#include "platform/defaults/private_files.h"

#include <array>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvane {
namespace {

namespace fs = std::filesystem;

constexpr int mostFilesSetAside = 10'000;

void createPrivateFolder(const fs::path& folder) {
  std::error_code ignored;
  if (folder.empty() || fs::exists(folder, ignored)) { return; }
  createPrivateFolder(folder.parent_path());
  ::mkdir(folder.c_str(), S_IRWXU);
}

fs::path withSuffix(fs::path file, std::string_view suffix) { return file += suffix; }

bool isTaken(const fs::path& file) {
  std::error_code ignored;
  return fs::symlink_status(file, ignored).type() != fs::file_type::not_found;
}

fs::path freeNameBeside(const fs::path& file) {
  int number = 1;
  fs::path name;
  do {
    name = withSuffix(file, fmt::format(".set-aside-{}", number));
  } while (isTaken(name) && number++ < mostFilesSetAside);
  return name;
}

}  // namespace

void createPrivateFile(const fs::path& file) {
  createPrivateFolder(file.parent_path());
  const int descriptor = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (descriptor >= 0) { ::close(descriptor); }
  std::error_code ignored;
  fs::permissions(file, fs::perms::group_all | fs::perms::others_all, fs::perm_options::remove,
                  ignored);
}

bool setAside(const fs::path& file) {
  constexpr std::array<std::string_view, 2> journals{"-wal", "-journal"};
  constexpr std::string_view logIndex = "-shm";  // holds nothing that the log does not
  const fs::path name = freeNameBeside(file);
  std::error_code error;
  if (!isTaken(name)) { fs::rename(file, name, error); }
  if (isTaken(file)) { return false; }
  for (const std::string_view suffix : journals) {
    const fs::path journal = withSuffix(file, suffix);
    if (fs::file_size(journal, error) > 0) {
      fs::rename(journal, withSuffix(name, suffix), error);
    } else {
      fs::remove(journal, error);
    }
  }
  fs::remove(withSuffix(file, logIndex), error);
  return true;
}

}  // namespace orvane
