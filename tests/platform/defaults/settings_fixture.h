#pragma once

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <unistd.h>

#include "platform/defaults/sqlite_defaults.h"
#include "support/temporary_folder.h"

namespace orvane::test {

namespace fs = std::filesystem;

/// A settings file in a folder that does not exist yet, seen from outside.
class SettingsFileTest : public testing::Test {
 protected:
  /// The names of all files beside the settings, in order.
  [[nodiscard]] std::vector<std::string> files() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(file.parent_path())) {
      names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }
  [[nodiscard]] static std::string contentOf(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  void replaceFile(const std::string& content) const {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary | std::ios::trunc) << content;
  }

  TemporaryFolder folder;
  fs::path file = folder.path() / "config" / "orvane" / "settings.sqlite";
};

// What a settings file may meet; each lasts as long as its object.

/// Another program that has the file open.
class OtherProgram {
 public:
  explicit OtherProgram(const fs::path& file) { sqlite3_open(file.c_str(), &connection_); }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;
  ~OtherProgram() { sqlite3_close(connection_); }

  void run(const std::string& sql) {
    EXPECT_EQ(sqlite3_exec(connection_, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sql;
  }

 private:
  sqlite3* connection_ = nullptr;
};

/// The rights of an ordinary user, also where the tests run as root.
class OrdinaryUser {
 public:
  OrdinaryUser() { become(65534); }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
  ~OrdinaryUser() { become(0); }

 private:
  void become(uid_t user) const {
    if (isRoot_) { EXPECT_EQ(::seteuid(user), 0); }
  }
  bool isRoot_ = ::geteuid() == 0;
};

/// A disk without room: no file may grow beyond `bytes`.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &previous_);
    const rlimit limit{.rlim_cur = bytes, .rlim_max = previous_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &previous_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  void (*handler_)(int);
  rlimit previous_{};
};

}  // namespace orvane::test
