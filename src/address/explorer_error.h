#pragma once

#include "platform/http/http_transport.h"

namespace orvane {

/// Why the explorer gave no figures. Texts for people are made by the store.
struct ExplorerError {
  enum class Kind {
    badURL,
    transport,
    badServerResponse,
    decoding,
    cannotParseResponse,
    cancelled
  };
  Kind kind;
  HttpFailure failure = HttpFailure::other;  ///< for `transport`

  bool operator==(const ExplorerError&) const = default;
};

}  // namespace orvane
