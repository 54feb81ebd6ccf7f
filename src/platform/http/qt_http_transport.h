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

/// The transport on Qt's sockets: the system's proxy and certificate authorities, TLS 1.2 or later,
/// HTTP/1.1, a connection for each request, and no cookie, cache or credential that outlives one. A
/// request carries the headers it was given, Host, User-Agent, Accept-Encoding (none) and
/// Connection (close). At most five redirects are followed. Of a certificate only the alternative
/// names count. A proxy that asks for a password fails the exchange.
///
/// A request whose headers could not be sent as they are is not sent at all: `other`. So is an
/// answer that `ResponseReader` calls broken. One that says nothing about its length ends where the
/// server ends the encrypted connection; without that it has been cut off.
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
