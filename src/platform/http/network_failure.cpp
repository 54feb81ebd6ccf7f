#include "platform/http/network_failure.h"

namespace orvane {
namespace {

// Below these values are the failures of connections to hosts and proxies.
bool mayStandForAStatus(QNetworkReply::NetworkError error) {
  return error == QNetworkReply::ProxyAuthenticationRequiredError ||
         error > QNetworkReply::UnknownProxyError;
}

HttpFailure failureOf(QNetworkReply::NetworkError error) {
  switch (error) {
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::ProxyConnectionRefusedError:
      return HttpFailure::cannotConnectToHost;
    case QNetworkReply::RemoteHostClosedError:
    case QNetworkReply::ProxyConnectionClosedError:
      return HttpFailure::networkConnectionLost;
    case QNetworkReply::HostNotFoundError:
    case QNetworkReply::ProxyNotFoundError:
      return HttpFailure::cannotFindHost;
    case QNetworkReply::TimeoutError:
    case QNetworkReply::ProxyTimeoutError:
      return HttpFailure::timedOut;
    // What a socket reports when no route leads to the host has no value of its own.
    case QNetworkReply::UnknownNetworkError:
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
      return HttpFailure::notConnectedToInternet;
    default:
      return HttpFailure::other;
  }
}

}  // namespace

std::optional<HttpFailure> exchangeFailure(QNetworkReply::NetworkError error, int status) {
  constexpr int firstErrorStatus = 400;
  if (status == 0 && error == QNetworkReply::NoError) { return HttpFailure::other; }
  if (error == QNetworkReply::NoError) { return std::nullopt; }
  if (status >= firstErrorStatus && mayStandForAStatus(error)) { return std::nullopt; }
  return failureOf(error);
}

}  // namespace orvane
