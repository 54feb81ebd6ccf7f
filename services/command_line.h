#pragma once

#include <QString>
#include <QStringList>
#include <expected>
#include "services/local_services.h"

namespace orvane::services {
struct CommandLine {
  LocalServicesOptions options;
  bool wantsHelp = false;
};

/// What the arguments (with the program's name) ask for, or a sentence about what is wrong.
[[nodiscard]] std::expected<CommandLine, QString> parseCommandLine(const QStringList& arguments);

[[nodiscard]] QString helpText();
}  // namespace orvane::services
