#include "core/failure_texts.h"

#include <fmt/format.h>

namespace orvane {
namespace {

bool meansUnreachable(HttpFailure failure) {
  switch (failure) {
    case HttpFailure::notConnectedToInternet:
    case HttpFailure::networkConnectionLost:
    case HttpFailure::cannotFindHost:
    case HttpFailure::cannotConnectToHost:
    case HttpFailure::timedOut:
      return true;
    case HttpFailure::invalidUrl:
    case HttpFailure::cancelled:
    case HttpFailure::other:
      return false;
  }
  return false;
}

}  // namespace

std::string poolErrorText(PoolError error, std::string_view word) {
  if (error.kind == PoolError::Kind::userAuthenticationRequired) {
    return "Braiins did not accept the API token. Check it in Settings below.";
  }
  if (error.kind == PoolError::Kind::transport && meansUnreachable(error.failure)) {
    return "Braiins could not be reached. The last figures stay until the next try.";
  }
  return fmt::format("The Braiins {} could not be loaded. The next try is in 5 minutes.", word);
}

std::string explorerErrorText() {
  return "Chainpeek could not be reached. The last figures stay until the next try in 10 minutes.";
}

}  // namespace orvane
