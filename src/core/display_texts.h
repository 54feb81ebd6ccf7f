#pragma once

#include <chrono>
#include <string_view>
#include "core/balance_state.h"
#include "platform/text/locale_format.h"
#include "pool/braiins_account_client.h"

namespace orvane {
// The texts in which figures and failures are shown: functions of the state and the user's locale.

/// "12,345" or "0.00012345", in the state's unit, without the unit's word.
[[nodiscard]] std::string amountNumberText(const BalanceState& state, const LocaleFormat& format,
                                           std::int64_t sats);
/// "12,345 sats" or "0.00012345 BTC".
[[nodiscard]] std::string amountText(const BalanceState& state, const LocaleFormat& format,
                                     std::int64_t sats);
/// "203 | 0 sats": the balances for the menu bar, the pool's first; empty without figures.
[[nodiscard]] std::string menuBarTitle(const BalanceState& state, const LocaleFormat& format);
/// The value of `sats` in the preferred currency; nothing without prices.
[[nodiscard]] std::optional<std::string> fiatText(const BalanceState& state,
                                                  const LocaleFormat& format, double sats);
/// "1 BTC = 84,123 €"; nothing without prices.
[[nodiscard]] std::optional<std::string> priceText(const BalanceState& state,
                                                   const LocaleFormat& format);

/// "12.35 TH/s", always with a decimal point; "—" for a rate that cannot be right.
[[nodiscard]] std::string hashRateText(double hashesPerSecond);
/// "Updated 2:05 PM".
[[nodiscard]] std::string updatedText(const LocaleFormat& format, WallTime time);
/// "Last share Nov 15, 2026, 2:05 PM"; empty without a time.
[[nodiscard]] std::string lastShareText(const LocaleFormat& format,
                                        std::optional<std::chrono::sys_seconds> lastShare);

/// The line beneath the pool's figures: a failure, else what is being waited for, else when the
/// figures were read.
[[nodiscard]] std::string poolStatusLine(const BalanceState& state, const LocaleFormat& format);
/// The same for the watched address.
[[nodiscard]] std::string addressStatusLine(const BalanceState& state, const LocaleFormat& format);

/// What the user reads when the pool's "account" or "history", whichever `word` says, could not be
/// loaded. A cancelled request has no text.
[[nodiscard]] std::string poolErrorText(PoolError error, std::string_view word);
/// The same for the block explorer, whatever the failure.
[[nodiscard]] std::string explorerErrorText();
}  // namespace orvane
