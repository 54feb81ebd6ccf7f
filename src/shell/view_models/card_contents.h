#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/balance_state.h"
#include "platform/text/locale_format.h"

namespace orvane {

/// What stands where a figure is not known.
inline constexpr const char* unknownFigure = "—";

/// A labelled figure, for example "Today" over "12,345 sats".
struct Metric {
  std::string title;
  std::string value;
  std::optional<std::string> fiatValue = {};  ///< without the "≈ " before it

  bool operator==(const Metric&) const = default;
};

/// The line beneath a card's figures.
struct StatusLine {
  enum class Kind { normal, warning };

  std::string text;
  Kind kind = Kind::normal;

  bool operator==(const StatusLine&) const = default;
};

/// A button that starts a refresh; it cannot be pressed while it is busy.
struct RefreshButtonState {
  bool isVisible = true;
  bool isBusy = false;

  bool operator==(const RefreshButtonState&) const = default;
};

/// A card's large figure, or the words that stand in its place.
struct BalanceFigure {
  std::string text;
  bool isPlaceholder = false;
  std::optional<std::string> fiatValue = {};  ///< without the "≈ " before it

  bool operator==(const BalanceFigure&) const = default;
};

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

/// What the pool account's card shows.
struct PoolCard {
  BalanceFigure balance;
  std::vector<Metric> metrics;
  StatusLine status;
  RefreshButtonState refresh;
};

[[nodiscard]] PoolCard poolCard(const BalanceState& state, const LocaleFormat& format);

/// What the watched address's card shows.
struct AddressCard {
  std::string address;
  bool isFromMiner = false;
  BalanceFigure balance;
  std::vector<Metric> metrics;                ///< empty until the address has been read
  std::vector<BlockRewardLine> blockRewards;  ///< in the explorer's order
  StatusLine status;
  RefreshButtonState refresh;
};

[[nodiscard]] AddressCard addressCard(const BalanceState& state, const LocaleFormat& format);

}  // namespace orvane
