#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include "core/balance_state.h"
#include "platform/text/locale_format.h"

namespace orvane {
/// What the main window shows beside its tables: its parts, the cards and the settings' fields.

/// Which parts of the main window show, and the least size they ask for in logical pixels.
struct WindowLayout {
  bool showsPoolCard = true;
  bool showsAddressCard = false;
  bool showsAccountColumn = false;  ///< workers and history
  int minimumWidth = 0;
  int minimumHeight = 0;
  bool operator==(const WindowLayout&) const = default;
};
[[nodiscard]] WindowLayout windowLayout(const BalanceState& state);

/// What stands where a figure is not known.
inline constexpr const char* unknownFigure = "—";

/// A labelled figure, for example "Today" over "12,345 sats".
struct Metric {
  std::string title;
  std::string value;
  std::string fiatValue = {};  ///< "≈ 3.47 €"; empty: none
  bool operator==(const Metric&) const = default;
};

/// A card's large figure, or the words that stand in its place.
struct BalanceFigure {
  std::string text;
  bool isPlaceholder = false;
  std::string fiatValue = {};  ///< as in Metric
  bool operator==(const BalanceFigure&) const = default;
};

/// One block reward and how far it is from being spendable.
struct BlockRewardLine {
  std::string text;
  bool isSpendable = false;
  bool operator==(const BlockRewardLine&) const = default;
};

/// The line beneath a card's figures: when they were read, or, as a warning, what went wrong.
struct StatusLine {
  std::string text;
  bool isWarning = false;
  bool operator==(const StatusLine&) const = default;
};

/// A button that starts a refresh; it cannot be pressed while it is busy.
struct RefreshButtonState {
  bool isVisible = true;
  bool isBusy = false;
  bool operator==(const RefreshButtonState&) const = default;
};

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
  std::vector<Metric> metrics = {};                ///< empty until the address has been read
  std::vector<BlockRewardLine> blockRewards = {};  ///< in the explorer's order
  StatusLine status;
  RefreshButtonState refresh;
};
[[nodiscard]] AddressCard addressCard(const BalanceState& state, const LocaleFormat& format);

/// A field whose text the user may save or remove.
struct SettingsFieldState {
  bool canSave = false;
  bool canRemove = false;
  bool operator==(const SettingsFieldState&) const = default;
};
/// The two fields as they stand, with `draft` typed into them: only a draft that says something new
/// can be saved, only what is stored can be removed.
[[nodiscard]] SettingsFieldState tokenFieldState(const BalanceState& state, std::string_view draft);
[[nodiscard]] SettingsFieldState addressFieldState(const BalanceState& state,
                                                   std::string_view draft);

/// What the empty address field says.
[[nodiscard]] const char* addressPlaceholder(const BalanceState& state);

/// Where the user manages the pool account.
struct AccountLink {
  std::string text;
  std::string url;
};
/// `webHost`: "host[:port]" of the pool's web site.
[[nodiscard]] AccountLink accountLink(std::string_view webHost);
}  // namespace orvane
