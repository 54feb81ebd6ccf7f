#pragma once

#include <chrono>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>
#include "platform/async/task.h"
#include "platform/secret/secret.h"

namespace orvane {
/// One header, sent as it is given.
struct HttpHeader {
  std::string name;
  Secret value;
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
  /// Where the answer sends the client, within the origin, when the request had headers of its own:
  /// whoever may send them decides whether and when to follow. Else empty.
  std::string redirect = {};
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

/// Whether the host may be there and only the way to it was missing.
[[nodiscard]] constexpr bool meansUnreachable(HttpFailure failure) {
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

using HttpResult = std::expected<HttpResponse, HttpFailure>;

/// Sends HTTPS GET requests. A redirect is followed within the origin and nowhere else, since the
/// URL alone may tell what the user would not tell another host; one that is not followed is an
/// answer with its 3xx status. Every request is sent once: the transport does not retry.
class HttpTransport {
 public:
  virtual ~HttpTransport() = default;

  [[nodiscard]] virtual Task<HttpResult> get(HttpRequest request) = 0;
};

/// The way from an exchange to what a client of a web API gives, the same for all of them. `Error`
/// is the client's own: a struct of a `kind` and, for its kind `transport`, a `failure`. One whose
/// kinds have no `badURL` counts an invalid URL among the failures of the transport.
template <class Error>
[[nodiscard]] Error errorOf(HttpFailure failure) {
  using Kind = Error::Kind;
  if (failure == HttpFailure::cancelled) { return {.kind = Kind::cancelled}; }
  if constexpr (requires { Kind::badURL; }) {
    if (failure == HttpFailure::invalidUrl) { return {.kind = Kind::badURL}; }
  }
  return {.kind = Kind::transport, .failure = failure};
}

/// The body of an answer with a status of 200 to 299.
template <class Error>
[[nodiscard]] std::expected<std::string, Error> bodyOf(HttpResult result) {
  if (!result) { return std::unexpected(errorOf<Error>(result.error())); }
  if (result->status < 200 || result->status > 299) {
    return std::unexpected(Error{.kind = Error::Kind::badServerResponse});
  }
  return std::move(result->body);
}

/// The document that the body is.
template <class Document, class Error>
[[nodiscard]] std::expected<Document, Error> decoded(
    const std::expected<std::string, Error>& body,
    std::optional<Document> (*decode)(std::string_view body)) {
  if (!body) { return std::unexpected(body.error()); }
  std::optional<Document> document = decode(*body);
  if (!document) { return std::unexpected(Error{.kind = Error::Kind::decoding}); }
  return *std::move(document);
}
}  // namespace orvane
