#pragma once

#include <optional>
#include <string>
#include "services/scenario/chain.h"
#include "services/scenario/moment.h"
#include "services/server/http_message.h"

/// What each port answers to a request when nothing is wrong.
namespace orvane::services {
/// The pool account API at one moment. Without a token to expect it asks for none. Amounts are
/// texts of bitcoin with eight decimals; share figures are 1024 times the shares of difficulty
/// one, as the pool counts them.
[[nodiscard]] Response poolAnswer(const Request& request, const Moment& moment,
                                  const std::optional<std::string>& token);

/// The block explorer's API over the chain as it stands; amounts in satoshis. An address without
/// any transaction has an empty history; one that cannot be an address is refused with 400.
[[nodiscard]] Response explorerAnswer(const Request& request, const Chain& chain);

/// The primary price source: numbers in euro and dollar. Prices drift by a few percent within
/// hours and by cents within minutes.
[[nodiscard]] Response priceAnswer(const Request& request, const Moment& moment);

/// The fallback price source: the same prices among exchange rates of many currencies, as texts.
[[nodiscard]] Response fallbackPriceAnswer(const Request& request, const Moment& moment);

class LocalServices;

/// The control port: what a person or a script does to the services while they run. README.md
/// lists the requests. A request that is not understood is refused with 400 and a sentence.
[[nodiscard]] Response controlAnswer(const Request& request, LocalServices& services);
}  // namespace orvane::services
