#pragma once

#include "platform/http/http_transport.h"

namespace orvane {

/// Why a pool request gave no figures. Texts for people are made by the store.
struct PoolError {
  enum class Kind {
    badURL,
    userAuthenticationRequired,
    badServerResponse,
    transport,
    decoding,
    cancelled,  ///< the calling task was cancelled: waiting for its slot or in flight
  };
  Kind kind;
  HttpFailure failure = HttpFailure::other;  ///< for `transport`

  bool operator==(const PoolError&) const = default;
};

}  // namespace orvane
