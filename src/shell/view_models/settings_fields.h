#pragma once

#include <string>
#include <string_view>

#include "core/balance_state.h"

namespace orvane {

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
