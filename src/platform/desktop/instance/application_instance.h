#pragma once

#include <functional>
#include <string>

namespace orvane {

/// What other programs ask of the running application.
struct ApplicationRequests {
  /// Show yourself. The token permits to take the focus; empty: none was given.
  std::function<void(const std::string& activationToken)> activate;
  /// Carry out a command by its name, for example "show-help"; unknown names are ignored.
  std::function<void(const std::string& name, const std::string& activationToken)> runAction;
};

/// Whether this process is the session's one instance of the application.
enum class InstanceRole {
  first,        ///< it is, and hears requests from now on
  handedOver,   ///< another one runs, and has been asked to show itself
  unreachable,  ///< another one runs and does not answer
  alone,        ///< no session bus: nobody can ask, and nobody can be asked
};

}  // namespace orvane
