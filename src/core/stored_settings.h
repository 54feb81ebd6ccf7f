#pragma once

#include <span>
#include <string_view>
#include "core/balance_state.h"
#include "platform/defaults/user_defaults.h"

namespace orvane {
/// The store's settings as they are kept between runs. A setting that is missing or cannot be read
/// has its default; nothing is cached.
class StoredSettings {
 public:
  explicit StoredSettings(UserDefaults& defaults) : defaults_(defaults) {}

  [[nodiscard]] BalanceUnit unit() const;  ///< by default sats
  void setUnit(BalanceUnit unit);

  [[nodiscard]] PreferredFiatCurrency preferredFiatCurrency() const;  ///< by default euro
  void setPreferredFiatCurrency(PreferredFiatCurrency currency);

  [[nodiscard]] std::string ownAddress() const;  ///< by default empty; not validated again
  /// An empty text is kept as an empty text.
  void setOwnAddress(std::string_view address);

  [[nodiscard]] HistoryView historyView() const;  ///< by default the table
  void setHistoryView(HistoryView view);
  [[nodiscard]] HistorySpan historySpan() const;  ///< by default a year
  void setHistorySpan(HistorySpan span);

  [[nodiscard]] bool notifiesWorkerStates() const;  ///< by default off
  void setNotifiesWorkerStates(bool on);

  /// Newest day first, by default empty. What does not decode stays where it is.
  [[nodiscard]] std::vector<BraiinsHistoryDay> history() const;
  void setHistory(std::span<const BraiinsHistoryDay> days);
  void removeHistory();

 private:
  UserDefaults& defaults_;
};
}  // namespace orvane
