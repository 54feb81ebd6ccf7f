#pragma once

#include <string>
#include <string_view>

#include "pool/pool_error.h"

/// What the user reads when a source could not be loaded. A cancelled request has no text.
namespace orvane {

/// `word` names what was asked for: "account" or "history".
[[nodiscard]] std::string poolErrorText(PoolError error, std::string_view word);

/// The same for every kind of failure of the block explorer.
[[nodiscard]] std::string explorerErrorText();

}  // namespace orvane
