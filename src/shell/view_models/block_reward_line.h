#pragma once

#include <string>
#include <vector>

#include "core/balance_state.h"
#include "platform/text/locale_format.h"

namespace orvane {

/// One block reward and how far it is from being spendable.
struct BlockRewardLine {
  std::string text;
  bool isSpendable = false;

  /// The symbol before the text.
  [[nodiscard]] const char* symbolName() const {
    return isSpendable ? "checkmark.seal.fill" : "hourglass";
  }

  bool operator==(const BlockRewardLine&) const = default;
};

/// One line per block reward of the address's summary, in its order; none without a summary.
[[nodiscard]] std::vector<BlockRewardLine> blockRewardLines(const BalanceState& state,
                                                            const LocaleFormat& format);

}  // namespace orvane
