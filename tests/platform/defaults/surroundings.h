#pragma once

#include <csignal>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <unistd.h>

namespace orvane::test {

// What a settings file may meet; each lasts as long as its object.

/// Another program that has the file open.
class OtherProgram {
 public:
  explicit OtherProgram(const std::filesystem::path& file) {
    sqlite3_open(file.c_str(), &connection_);
  }
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
  OrdinaryUser() {
    if (previous_ == 0) { EXPECT_EQ(::seteuid(65534), 0); }
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
  ~OrdinaryUser() {
    if (previous_ == 0) { EXPECT_EQ(::seteuid(0), 0); }
  }

 private:
  uid_t previous_ = ::geteuid();
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
