#include "platform/http/qt_http_transport.h"
#include <QNetworkAccessManager>
#include <QNetworkProxyFactory>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslCertificate>
#include <QUrl>
#include <algorithm>
#include <cstddef>
#include <expected>
#include <memory>
#include <utility>
#include "platform/async/completion.h"
#include "platform/async/executor.h"
#include "platform/http/request_rules.h"

namespace orvane {
// A request is one exchange after the other: a redirect is the end of one, and whether the next
// follows it is decided here and not by Qt. Nothing of an exchange is left for the next.

namespace {
// What may wait in Qt's buffers; the limit of the whole body is counted here.
constexpr qint64 readBufferBytes = 1024LL * 1024;
constexpr std::size_t largestBody = 32UL * 1024 * 1024;
constexpr int mostRedirects = 5;

/// What has been found out before, so that Qt asks nobody.
class KnownProxies final : public QNetworkProxyFactory {
 public:
  explicit KnownProxies(Proxies proxies) : proxies_(std::move(proxies)) {}
  Proxies queryProxy(const QNetworkProxyQuery& /*query*/) override { return proxies_; }

 private:
  Proxies proxies_;
};

/// The end of an answer as it came, a redirect too.
struct HttpAnswer {
  int status = 0;
  std::string body;
  QUrl location;  ///< empty unless the answer is a redirect
};

using ExchangeResult = std::expected<HttpAnswer, HttpFailure>;

/// When an exchange is given up as `timedOut`.
struct TimeLimits {
  ExecutorClock::duration idle{};  ///< when nothing arrives for so long
  Instant end;                     ///< then, whatever arrives
};

/// One GET over a connection of its own, which ends with it.
///
/// Exactly one request is sent. Qt's stack repeats a GET, without a word, when the connection is
/// lost before the answer has begun; here that counts as a lost connection.
class HttpExchange {
 public:
  HttpExchange(Executor& executor, const QNetworkRequest& request, Proxies proxies,
               TimeLimits limits, Completion<ExchangeResult> completion)
      : executor_(executor),
        limits_(limits),
        completion_(std::move(completion)),
        lastArrival_(executor.now()) {
    manager_.setProxyFactory(new KnownProxies(std::move(proxies)));
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
  HttpExchange(const HttpExchange&) = delete;
  HttpExchange& operator=(const HttpExchange&) = delete;
  /// Aborts what is under way.
  ~HttpExchange() { executor_.cancel(timer_); }

 private:
  // Qt's thread waits for this signal's receivers, and sends the request after them. An exchange
  // has one connection, so a second one is there only to send the request again.
  void requestIsAboutToBeSent() {
    if (std::exchange(connected_, true)) {
      end(std::unexpected(HttpFailure::networkConnectionLost));
      return;
    }
    // Qt is content with a common name, whatever the other names say.
    if (!namesHost(reply_->sslConfiguration().peerCertificate(), reply_->url().host())) {
      end(std::unexpected(HttpFailure::other));
      return;
    }
    noteArrival();
  }

  void takeBody() {
    if (ended_) { return; }
    noteArrival();
    const QByteArray bytes = reply_->readAll();
    if (bytes.size() > static_cast<qsizetype>(largestBody - body_.size())) {
      end(std::unexpected(HttpFailure::other));
      return;
    }
    body_.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
  }

  void finish() {
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

  void noteArrival() { lastArrival_ = executor_.now(); }

  // One timer that looks again costs less than one that every arrival sets anew.
  void watchTheTime() {
    const Instant deadline = std::min(lastArrival_ + limits_.idle, limits_.end);
    if (executor_.now() >= deadline) {
      end(std::unexpected(HttpFailure::timedOut));
      return;
    }
    timer_ = executor_.schedule(deadline, [this] { watchTheTime(); });
  }

  void end(ExchangeResult result) {
    if (std::exchange(ended_, true)) { return; }
    executor_.cancel(timer_);
    completion_.resolve(std::move(result));
    reply_->abort();
  }

  Executor& executor_;
  TimeLimits limits_;
  Completion<ExchangeResult> completion_;
  QNetworkAccessManager manager_;
  std::unique_ptr<QNetworkReply> reply_;  ///< goes before the manager, which waits for its thread
  std::string body_;
  Instant lastArrival_;
  Executor::TimerId timer_ = 0;
  bool connected_ = false;
  bool ended_ = false;
  QObject receiver_;  ///< of the reply's signals; last, so that none meets a half-destroyed object
};

Task<ExchangeResult> exchange(QNetworkRequest request, Proxies proxies, TimeLimits limits) {
  const TaskContext context = co_await currentContext();
  Executor* const executor = context.executor;
  CompletionAwaiter<ExchangeResult>::Start start = [&](Completion<ExchangeResult> completion) {
    auto running =
        std::make_shared<HttpExchange>(*executor, request, proxies, limits, std::move(completion));
    return [running = std::move(running)] {};  // dropping it ends the exchange
  };
  ExchangeResult whenCancelled = std::unexpected(HttpFailure::cancelled);
  co_return co_await untilResolved<ExchangeResult>(std::move(start), std::move(whenCancelled));
}

QNetworkRequest networkRequest(const QUrl& url, const std::vector<HttpHeader>& headers,
                               const std::optional<QSslConfiguration>& tls) {
  QNetworkRequest result(url);
  result.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                      QNetworkRequest::ManualRedirectPolicy);
  result.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
  // Otherwise a challenge for NTLM would be answered by a second request.
  result.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  if (tls) { result.setSslConfiguration(*tls); }
  for (const HttpHeader& header : headers) {
    result.setRawHeader(QByteArray::fromStdString(header.name),
                        QByteArray::fromStdString(header.value));
  }
  return result;
}

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
  const TimeLimits limits{.idle = request.idleTimeout,
                          .end = context.executor->now() + options_.longestExchange};
  for (int redirects = 0;; ++redirects) {
    const QNetworkRequest toSend = networkRequest(*url, request.headers, tls_);
    const Instant patience = std::min(context.executor->now() + limits.idle, limits.end);
    const ProxyResult proxies = co_await findProxies(options_.resolver, *url, patience);
    if (!proxies) { co_return std::unexpected(proxies.error()); }
    ExchangeResult answer = co_await exchange(toSend, *proxies, limits);
    if (!answer) { co_return std::unexpected(answer.error()); }
    const std::optional<QUrl> target = allowedRedirect(answer->status, *url, answer->location);
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
