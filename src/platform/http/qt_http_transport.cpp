#include "platform/http/qt_http_transport.h"
#include <QByteArray>
#include <QSslCertificate>
#include <QSslSocket>
#include <QUrl>
#include <algorithm>
#include <expected>
#include <utility>
#include "platform/async/executor.h"
#include "platform/http/http_exchange.h"
#include "platform/http/request_rules.h"

namespace orvane {
// A request is one exchange after the other: a redirect is the end of one, and whether the next
// follows it is decided here. Nothing of an exchange is left for the next.

namespace {
constexpr int mostRedirects = 5;

// Adding to the default configuration's own list, which is empty until roots are needed, would
// leave nothing but the additions.
std::optional<QSslConfiguration> trustBesideTheSystem(const std::string& caFile) {
  if (caFile.empty()) { return std::nullopt; }
  QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
  tls.setCaCertificates(QSslConfiguration::systemCaCertificates() +
                        QSslCertificate::fromPath(QString::fromStdString(caFile)));
  return tls;
}

/// The first to ask for TLS waits until its library is read and ready, which takes as long as a
/// window's first painting.
ProxyResolver withTls(const ProxyResolver& resolver) {
  return [resolver](const QUrl& url) {
    QSslConfiguration::defaultConfiguration();
    return resolver(url);
  };
}

QSslConfiguration strict(QSslConfiguration tls) {
  tls.setProtocol(QSsl::TlsV1_2OrLater);
  tls.setPeerVerifyMode(QSslSocket::VerifyPeer);
  tls.setAllowedNextProtocols({QByteArrayLiteral("http/1.1")});
  return tls;
}
}  // namespace

QtHttpTransport::QtHttpTransport(QtHttpOptions options)
    : options_(std::move(options)), tls_(trustBesideTheSystem(options_.extraCaFile)) {}

Task<HttpResult> QtHttpTransport::get(HttpRequest request) {
  std::optional<QUrl> url = httpsUrl(request.url);
  if (!url) { co_return std::unexpected(HttpFailure::invalidUrl); }
  if (!canBeSent(request.headers)) { co_return std::unexpected(HttpFailure::other); }

  const TaskContext context = co_await currentContext();
  const TimeLimits limits{.idle = request.idleTimeout,
                          .end = context.executor->now() + options_.longestExchange};
  for (int redirects = 0;; ++redirects) {
    const Instant patience = std::min(context.executor->now() + limits.idle, limits.end);
    const ProxyResult proxies = co_await findProxies(withTls(options_.resolver), *url, patience);
    if (!proxies) { co_return std::unexpected(proxies.error()); }
    ExchangeOrder order{.url = *url,
                        .headers = request.headers,
                        .proxies = *proxies,
                        .tls = strict(tls_.value_or(QSslConfiguration::defaultConfiguration())),
                        .limits = limits};
    ExchangeResult answer = co_await exchange(std::move(order));
    if (!answer) { co_return std::unexpected(answer.error()); }
    const QUrl location = QUrl::fromEncoded(QByteArray::fromStdString(answer->location));
    const std::optional<QUrl> target = allowedRedirect(answer->status, *url, location);
    const bool isCallersToFollow = target && !request.headers.empty();
    if (!target || isCallersToFollow || redirects == mostRedirects) {
      HttpResponse response{.status = answer->status, .body = std::move(answer->body)};
      if (isCallersToFollow) { response.redirect = target->toEncoded().toStdString(); }
      co_return response;
    }
    url = target;
  }
}
}  // namespace orvane
