#pragma once

#include <QSslConfiguration>
#include <chrono>
#include <optional>
#include <string>
#include "platform/http/http_transport.h"
#include "platform/http/proxy_lookup.h"

namespace orvane {
/// What a build or a test may want otherwise.
struct QtHttpOptions {
  std::string extraCaFile;  ///< PEM, trusted beside the system's authorities; empty: none
  /// An answer that goes on arriving is given up after so long, redirects included, as `timedOut`.
  std::chrono::seconds longestExchange{std::chrono::minutes(4)};
  ProxyResolver resolver = systemProxies;
};

/// The transport on Qt's network stack: the system's proxy and certificate authorities, HTTP/1.1,
/// a connection for each request, and no cookie, cache or credential that outlives one. A request
/// carries the headers it was given and those that the stack adds (Host, Connection, User-Agent,
/// Accept-Encoding, Accept-Language). At most five redirects are followed. Of a certificate only
/// the alternative names count.
///
/// A request whose headers could not be sent as they are is not sent at all: `other`. A body that
/// announces no length ends where the connection does; one that was cut off there passes as whole.
///
/// Lives on the main thread; its tasks must not outlive it.
class QtHttpTransport final : public HttpTransport {
 public:
  /// Reads the extra authorities once; a file that cannot be read adds none.
  explicit QtHttpTransport(QtHttpOptions options = {});

  [[nodiscard]] Task<HttpResult> get(HttpRequest request) override;

 private:
  QtHttpOptions options_;
  std::optional<QSslConfiguration> tls_;  ///< nothing: Qt's own, which loads roots on demand
};
}  // namespace orvane
