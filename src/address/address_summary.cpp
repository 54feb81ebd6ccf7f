#include "address/address_summary.h"

#include <limits>

namespace orvane {

std::int64_t confirmations(std::int64_t tipHeight, std::optional<std::int64_t> blockHeight) {
  if (!blockHeight || *blockHeight > tipHeight) { return 0; }
  constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
  // The heights of a malformed answer may lie further apart than a signed number can tell.
  const std::uint64_t blocksOnTop =
      static_cast<std::uint64_t>(tipHeight) - static_cast<std::uint64_t>(*blockHeight);
  return blocksOnTop < static_cast<std::uint64_t>(most) ? static_cast<std::int64_t>(blocksOnTop) + 1
                                                        : most;
}

}  // namespace orvane
