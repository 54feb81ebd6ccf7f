#include "platform/http/http_exchange.h"

#include <QNetworkProxyFactory>
#include <algorithm>
#include <utility>

#include "platform/http/network_failure.h"

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

}  // namespace orvane
