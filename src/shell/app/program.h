#pragma once

#include <functional>
#include <memory>
#include <string>
#include "core/balance_platform.h"

namespace orvane {
/// What a build of the program is made for.
struct ProgramSettings {
  ServiceHosts hosts;
  std::string poolWebHost;
  std::string explorerWebHost;
  std::string extraCaFile;           ///< PEM; empty: the system's authorities alone
  std::string keychainAccessGroups;  ///< separated by semicolons
  std::string brandUrl;              ///< empty: none
  std::string version;
  /// The main thread's queue and clock; made once the event loop can be used.
  std::function<std::unique_ptr<Executor>()> makeExecutor;
};

/// Runs the application on the real desktop until it ends, and returns the process's exit code:
/// 0 also when another instance runs and has been asked to show itself.
[[nodiscard]] int runProgram(int argc, char** argv, const ProgramSettings& settings);
}  // namespace orvane
