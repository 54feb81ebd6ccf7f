#include "shell/view_models/settings_fields.h"

#include <fmt/format.h>

#include "platform/text/unicode.h"

namespace orvane {

namespace {

SettingsFieldState fieldState(std::string_view stored, std::string_view draft) {
  return {.canSave = trimmed(draft) != stored, .canRemove = !stored.empty()};
}

}  // namespace

SettingsFieldState tokenFieldState(const BalanceState& state, std::string_view draft) {
  return fieldState(state.token, draft);
}

SettingsFieldState addressFieldState(const BalanceState& state, std::string_view draft) {
  return fieldState(state.ownAddress, draft);
}

const char* addressPlaceholder(const BalanceState& state) {
  return state.addressIsFromMiner
             ? "Another Bitcoin address to watch instead"
             : "Bitcoin address to watch, e.g. your solo-mining payout address";
}

AccountLink accountLink(std::string_view webHost) {
  return {.text = fmt::format("Open the account at {}", webHost),
          .url = fmt::format("https://{}/", webHost)};
}

}  // namespace orvane
