#pragma once

#include <expected>
#include <span>
#include <string>

#include "services/local_services.h"

namespace orvane::services {

struct CommandLine {
  LocalServicesOptions options;
  bool wantsHelp = false;
};

/// What the arguments (without the program's name) ask for, or a sentence about what is wrong.
[[nodiscard]] std::expected<CommandLine, std::string> parseCommandLine(
    std::span<const char* const> arguments);

[[nodiscard]] std::string helpText();

}  // namespace orvane::services
