#pragma once

#include <optional>
#include <string>
#include <vector>

namespace orvane {
/// What the about and help windows say of the application.
struct FennickAppInfo {
  std::string name;
  std::string summary;
  std::vector<std::string> helpIntroduction;  ///< paragraphs, in the order shown
  std::optional<std::string> contextualHelp;
};

/// Orvane's own record; made on first use.
[[nodiscard]] const FennickAppInfo& orvaneAppInfo();

/// "Version 1.2.0 (345)". Without a short version 1.0 is shown; without a build, or with an empty
/// one, nothing stands behind the version.
[[nodiscard]] std::string applicationVersionText(const std::optional<std::string>& shortVersion,
                                                 const std::optional<std::string>& build);
}  // namespace orvane
