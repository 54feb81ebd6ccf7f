#include "platform/http/qt_http_transport.h"

#include <QNetworkProxyFactory>
#include <QSslCertificate>
#include <algorithm>
#include <memory>
#include <utility>

#include "platform/http/request_rules.h"

namespace orvane {

namespace {

// What may wait in Qt's buffers; the limit of the whole body is counted here.
constexpr qint64 readBufferBytes = 1024LL * 1024;

class SystemProxies final : public QNetworkProxyFactory {
 public:
  QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override {
    return systemProxyForQuery(query);
  }
};

}  // namespace

HttpExchange::HttpExchange(Executor& executor, const QNetworkRequest& request,
                           HttpExchangeLimits limits, Completion<Result> completion)
    : executor_(executor),
      limits_(limits),
      completion_(std::move(completion)),
      lastArrival_(executor.now()) {
  manager_.setProxyFactory(new SystemProxies);
  reply_.reset(manager_.get(request));
  reply_->setReadBufferSize(readBufferBytes);
  const QNetworkReply* const reply = reply_.get();
  QObject::connect(reply, &QNetworkReply::encrypted, &receiver_,
                   [this] { requestIsAboutToBeSent(); });
  QObject::connect(reply, &QNetworkReply::metaDataChanged, &receiver_, [this] { noteArrival(); });
  QObject::connect(reply, &QNetworkReply::readyRead, &receiver_, [this] { takeBody(); });
  QObject::connect(reply, &QNetworkReply::finished, &receiver_, [this] { finish(); });
  watchTheTime();
}

HttpExchange::~HttpExchange() { executor_.cancel(timer_); }

// Qt's thread waits for this signal's receivers, and sends the request after them. An exchange has
// one connection, so a second one is there only to send the request again.
void HttpExchange::requestIsAboutToBeSent() {
  if (std::exchange(connected_, true)) {
    end(std::unexpected(HttpFailure::networkConnectionLost));
    return;
  }
  noteArrival();
}

void HttpExchange::takeBody() {
  if (ended_) { return; }
  noteArrival();
  const QByteArray bytes = reply_->readAll();
  if (bytes.size() > static_cast<qsizetype>(limits_.bodyBytes - body_.size())) {
    end(std::unexpected(HttpFailure::other));
    return;
  }
  body_.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

void HttpExchange::finish() {
  takeBody();
  const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  if (const auto failure = exchangeFailure(reply_->error(), status)) {
    end(std::unexpected(*failure));
    return;
  }
  end(HttpAnswer{
      .status = status,
      .body = std::move(body_),
      .location = reply_->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl()});
}

// One timer that looks again costs less than one that every arrival sets anew.
void HttpExchange::watchTheTime() {
  const Instant deadline = std::min(lastArrival_ + limits_.idle, limits_.end);
  if (executor_.now() >= deadline) {
    end(std::unexpected(HttpFailure::timedOut));
    return;
  }
  timer_ = executor_.schedule(deadline, [this] { watchTheTime(); });
}

void HttpExchange::end(Result result) {
  if (std::exchange(ended_, true)) { return; }
  executor_.cancel(timer_);
  completion_.resolve(std::move(result));
  reply_->abort();
}

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
