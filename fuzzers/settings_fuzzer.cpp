// The settings file: whatever lies in its place, settings can be read and kept, and what was set
// aside is as it was.

#include <filesystem>
#include <fstream>
#include <unistd.h>
#include "core/stored_settings.h"
#include "fuzzer.h"
#include "platform/defaults/sqlite_defaults.h"

namespace orvane {
namespace {
namespace fs = std::filesystem;

/// A folder in memory, one for each process.
fs::path emptyFolder() {
  const fs::path folder = "/dev/shm/orvane-fuzz-" + std::to_string(::getpid());
  fs::remove_all(folder);
  fs::create_directories(folder);
  return folder;
}

std::string contentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}
}  // namespace

void tryInput(std::string_view content) {
  const fs::path file = emptyFolder() / "settings.sqlite";
  std::ofstream(file, std::ios::binary) << content;
  {
    SqliteDefaults defaults(file);
    const StoredSettings settings(defaults);
    (void)settings.unit();
    (void)settings.preferredFiatCurrency();
    (void)settings.history();
    (void)defaults.texts("balance.watchedAddressSeenTransactions");
    defaults.setText("kept", "text");
    defaults.setTexts("list", {"a"});
    defaults.setTexts("list", {"a", "b"});
    require(defaults.text("kept") == "text");
  }
  const SqliteDefaults next(file);
  require(next.text("kept") == "text");
  require(next.texts("list") == std::vector<std::string>{"a", "b"});
  const fs::path aside = file.string() + ".set-aside-1";
  if (fs::exists(aside)) { require(contentOf(aside) == content); }
  fs::remove_all(file.parent_path());
}
}  // namespace orvane
