#pragma once

#include <chrono>
#include <expected>
#include <string>
#include <vector>

#include "platform/async/task.h"

namespace orvane {

/// One header, sent as it is given.
struct HttpHeader {
  std::string name;
  std::string value;
};

/// What is asked: always a GET.
struct HttpRequest {
  std::string url;                       ///< absolute, https
  std::vector<HttpHeader> headers = {};  ///< never sent to another origin than that of `url`
  std::chrono::seconds idleTimeout{60};  ///< gives up when nothing arrives for so long
};

/// An answer that arrived whole.
struct HttpResponse {
  int status = 0;
  std::string body;

  [[nodiscard]] bool isSuccess() const { return status >= 200 && status <= 299; }
};

/// Why an exchange brought no answer. A status of any kind is an answer, not a failure.
enum class HttpFailure {
  invalidUrl,
  notConnectedToInternet,
  networkConnectionLost,
  cannotFindHost,
  cannotConnectToHost,
  timedOut,
  cancelled,  ///< the calling task was cancelled; the request has been aborted
  other,      ///< among others: a certificate that is not trusted, a body over 32 MiB
};

using HttpResult = std::expected<HttpResponse, HttpFailure>;

/// Sends HTTPS GET requests. A redirect is followed within https, and a request with headers of
/// its own only within its origin; one that is not followed is an answer with its 3xx status.
/// Every request is sent once: the transport does not retry.
class HttpTransport {
 public:
  virtual ~HttpTransport() = default;

  [[nodiscard]] virtual Task<HttpResult> get(HttpRequest request) = 0;
};

}  // namespace orvane
