#pragma once

#include <array>
#include <cstdio>
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

/// Stores an item as another program would: with the attributes given and a schema of its own.
inline void storeWithSecretTool(const std::string& attributes, const std::string& data) {
  outputOf("printf '%s' '" + data + "' | secret-tool store --label=foreign " + attributes);
}
}  // namespace orvane::test
