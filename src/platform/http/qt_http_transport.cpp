#include "platform/http/qt_http_transport.h"

#include <QSslCertificate>
#include <memory>
#include <utility>

#include "platform/http/request_rules.h"

namespace orvane {
namespace {

constexpr std::size_t largestBody = 32UL * 1024 * 1024;
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

}  // namespace

QtHttpTransport::QtHttpTransport(QtHttpOptions options)
    : options_(std::move(options)), tls_(trustBesideTheSystem(options_.extraCaFile)) {}

Task<HttpResult> QtHttpTransport::get(HttpRequest request) {
  std::optional<QUrl> url = httpsUrl(request.url);
  if (!url) { co_return std::unexpected(HttpFailure::invalidUrl); }
  if (!canBeSent(request.headers)) { co_return std::unexpected(HttpFailure::other); }

  const TaskContext context = co_await currentContext();
  const Instant end = context.executor->now() + options_.longestExchange;
  for (int redirects = 0;; ++redirects) {
    HttpExchange::Result answer = co_await exchange(request, *url, end);
    if (!answer) { co_return std::unexpected(answer.error()); }
    const std::optional<QUrl> target =
        allowedRedirect(answer->status, *url, answer->location, !request.headers.empty());
    if (!target || redirects == mostRedirects) {
      co_return HttpResponse{.status = answer->status, .body = std::move(answer->body)};
    }
    url = target;
  }
}

Task<HttpExchange::Result> QtHttpTransport::exchange(const HttpRequest& request, QUrl url,
                                                     Instant end) {
  using Result = HttpExchange::Result;
  const TaskContext context = co_await currentContext();
  Executor* const executor = context.executor;
  const QNetworkRequest toSend = networkRequest(request, url);
  const HttpExchangeLimits limits{
      .idle = request.idleTimeout, .end = end, .bodyBytes = largestBody};
  CompletionAwaiter<Result>::Start start = [&](Completion<Result> completion) {
    auto running = std::make_shared<HttpExchange>(*executor, toSend, limits, std::move(completion));
    return [running = std::move(running)] {};  // dropping it ends the exchange
  };
  Result whenCancelled = std::unexpected(HttpFailure::cancelled);
  co_return co_await untilResolved<Result>(std::move(start), std::move(whenCancelled));
}

QNetworkRequest QtHttpTransport::networkRequest(const HttpRequest& request, const QUrl& url) const {
  QNetworkRequest result(url);
  result.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                      QNetworkRequest::ManualRedirectPolicy);
  result.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
  // Otherwise a challenge for NTLM would be answered by a second request.
  result.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  if (tls_) { result.setSslConfiguration(*tls_); }
  for (const HttpHeader& header : request.headers) {
    result.setRawHeader(QByteArray::fromStdString(header.name),
                        QByteArray::fromStdString(header.value));
  }
  return result;
}

}  // namespace orvane
