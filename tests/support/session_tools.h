#pragma once

#include <QString>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace orvane::test {

/// What a shell command prints.
inline std::string outputOf(const std::string& command) {
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen(command.c_str(), "r"), &::pclose);
  std::string output;
  std::array<char, 256> buffer{};
  while (std::fgets(buffer.data(), buffer.size(), pipe.get()) != nullptr) {
    output += buffer.data();
  }
  return output;
}

/// A service of the session that does not run before somebody needs it. What the bus has started by
/// then stays when this object ends.
class StartableService {
 public:
  StartableService(const QString& name, const QString& command)
      : file_(std::string(std::getenv("XDG_DATA_HOME")) + "/dbus-1/services/" + name.toStdString() +
              ".service") {
    // The bus of a test session is older than its display.
    std::ofstream(file_) << "[D-BUS Service]\nName=" << name.toStdString()
                         << "\nExec=/usr/bin/env DISPLAY=" << std::getenv("DISPLAY") << ' '
                         << command.toStdString() << '\n';
    reload();
  }
  StartableService(const StartableService&) = delete;
  StartableService& operator=(const StartableService&) = delete;
  ~StartableService() {
    std::filesystem::remove(file_);
    reload();
  }

 private:
  static void reload() {
    outputOf(
        "dbus-send --session --print-reply --dest=org.freedesktop.DBus / "
        "org.freedesktop.DBus.ReloadConfig");
  }

  std::string file_;
};

/// Stores an item as another program would: with the attributes given and a schema of its own.
inline void storeWithSecretTool(const std::string& attributes, const std::string& data) {
  outputOf("printf '%s' '" + data + "' | secret-tool store --label=foreign " + attributes);
}

/// How many items have these attributes.
inline int countWithSecretTool(const std::string& attributes) {
  return std::atoi(
      outputOf("secret-tool search --all " + attributes + " 2>/dev/null | grep -c '^label'")
          .c_str());
}

}  // namespace orvane::test
