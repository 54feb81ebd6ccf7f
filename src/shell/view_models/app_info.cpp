#include "shell/view_models/app_info.h"
#include <fmt/format.h>

namespace orvane {
namespace {
std::vector<std::string> helpParagraphs() {
  return {
      "Orvane shows what your Braiins Pool account has earned. The menu bar carries the "
      "current balance; the window adds today's reward, the account hashrate of the last "
      "hour, the shares of the last 24 hours, every worker mining under the account, and the "
      "daily history Braiins keeps.",
      "The app needs a read-only API token. Create one in Braiins Pool under Settings → "
      "Access Profiles, paste it into the Settings section of the window and it is stored in "
      "your iCloud Keychain. Hashwick reads the same item, so a token entered in either app "
      "serves both. A read-only token can show figures; it cannot move funds or change the "
      "account.",
      "Figures refresh every five minutes, the interval in which Braiins publishes new "
      "account statistics. Refresh from the menu bar icon's menu when you do not want to "
      "wait. A failed refresh leaves the last figures standing and says so beneath them.",
      "Solo mining with Bitcoin Core pays a found block straight to your own address, with no "
      "pool account to ask. When Hashwick mines on mainnet with Bitcoin Core, Orvane picks up "
      "its payout address by itself, through iCloud Keychain also on your other Macs; enter "
      "another address under Settings to watch that one instead. The app shows the confirmed "
      "balance, unconfirmed payments, and each block reward with its confirmations. A block "
      "reward can be spent after 100 confirmations, about 17 hours. The app notifies you of "
      "every new payment and block reward. With a Braiins token as well, the menu bar shows "
      "both balances, the pool first: 203 | 0 sats.",
      "The address is read from the public Chainpeek API every ten minutes. Chainpeek learns "
      "which address you ask for, but no key; nothing can be spent from this app. You do not "
      "need to run Bitcoin Core to watch an address.",
      "Next to the balance, today's reward and the history total stands their value in euro "
      "or US dollar at the current Bitcoin price, which the app fetches with every refresh. "
      "Choose the currency under Settings.",
      "The workers list is the pool's view: a worker is OK while it submits shares at its "
      "usual rate, Low when its rate dropped, Off when Braiins has not seen a share for a "
      "while. The short names are the part after the dot in each Stratum login — mac for "
      "pellam.mac.",
      "Close the window with the Close button, Command-W or Escape and the app leaves the "
      "Dock and stays in the menu bar; a click on its icon brings it back. The red window "
      "control quits, as does Command-Q or the menu bar icon's Quit.",
      "With “Notify me when a worker stops or recovers” switched on under Settings, the app tells "
      "you when Braiins lists a worker as Off, or not at all, for two refreshes or as Low for "
      "three, and when it is OK again. “Save History as CSV…” in the menu at the bottom of the "
      "window, or Command-S, saves the daily history for a spreadsheet or a tax return; Command-C "
      "in the table copies a row. “Chart” in its header draws the history instead: rewards as "
      "bars, the average hashrate as a line, with the pointer or the arrow keys to read day by "
      "day. “Payments…” in the same menu lists what the watched address has received, and opens "
      "the explorer's page of one payment in your browser. The entry for start at login that comes "
      "with the app starts it into the menu bar, without its window."};
}
}  // namespace

const FennickAppInfo& orvaneAppInfo() {
  static const FennickAppInfo info{
      .name = "Orvane",
      .summary =
          "Your Braiins Pool balance or your solo-mining payout address in the menu bar, with "
          "rewards, workers and history one click away.",
      .helpIntroduction = helpParagraphs(),
      .contextualHelp = std::nullopt};
  return info;
}

std::string applicationVersionText(const std::optional<std::string>& shortVersion,
                                   const std::optional<std::string>& build) {
  auto text = fmt::format("Version {}", shortVersion.value_or("1.0"));
  if (build && !build->empty()) { text += fmt::format(" ({})", *build); }
  return text;
}
}  // namespace orvane
