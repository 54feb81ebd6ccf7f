#pragma once

namespace orvane {

/// The keychain items that this application shares with the companion mining application.
struct SharedItem {
  const char* service;
  const char* account;
};

/// The pool's API token; either application writes it.
inline constexpr SharedItem poolTokenItem{.service = "com.quorvex.hashwick.pool",
                                          .account = "braiins-api-token"};
/// The address to which the miner pays its solo-mined blocks; only read here.
inline constexpr SharedItem payoutAddressItem{.service = "com.quorvex.hashwick.payout",
                                              .account = "core-mainnet-payout-address"};

}  // namespace orvane
