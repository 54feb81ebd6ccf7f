#include "shell/view_models/window_layout.h"

namespace orvane {

WindowLayout windowLayout(const BalanceState& state) {
  const bool hasToken = !state.token.empty();
  const bool hasAddress = !state.watchedAddress.empty();
  return {.showsPoolCard = hasToken || !hasAddress,
          .showsAddressCard = hasAddress,
          .showsAccountColumn = hasToken,
          .minimumWidth = hasToken ? 1190 : 500,
          .minimumHeight = hasToken && hasAddress ? 990 : 720};
}

}  // namespace orvane
