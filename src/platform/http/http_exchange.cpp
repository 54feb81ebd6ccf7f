#include "platform/http/http_exchange.h"
#include <QByteArray>
#include <QObject>
#include <QSsl>
#include <QSslSocket>
#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>
#include "platform/async/completion.h"
#include "platform/http/dialing.h"
#include "platform/http/request_rules.h"

namespace orvane {
// Dialing brings a connection in clear. It is encrypted, the other side proves who it is, and only
// then the request is written. What comes back goes to the reader, which says when it is enough;
// the rest of the connection is not waited for. All of it happens in signals of one socket.

namespace {
/// What may wait in the socket's buffers.
constexpr qint64 readBufferBytes = 64LL * 1024;
constexpr int httpsPort = 443;

class HttpExchange {
 public:
  HttpExchange(Executor& executor, ExchangeOrder order, Completion<ExchangeResult> completion)
      : executor_(executor),
        order_(std::move(order)),
        completion_(std::move(completion)),
        lastArrival_(executor.now()),
        dialing_(executor, host(), static_cast<quint16>(order_.url.port(httpsPort)), order_.proxies,
                 {.connected = [this](auto socket) { encrypt(std::move(socket)); },
                  .failed = [this](HttpFailure failure) { end(std::unexpected(failure)); }}) {
    watchTheTime();
    dialing_.begin();
  }
  HttpExchange(const HttpExchange&) = delete;
  HttpExchange& operator=(const HttpExchange&) = delete;
  /// Aborts what is under way.
  ~HttpExchange() {
    executor_.cancel(timer_);
    socket_.reset();  // which has shared the request's memory
    ::explicit_bzero(const_cast<char*>(request_.constData()),
                     static_cast<std::size_t>(request_.size()));
  }

 private:
  [[nodiscard]] QString host() const { return order_.url.host(QUrl::FullyEncoded); }

  void encrypt(std::unique_ptr<QSslSocket> socket) {
    socket_ = std::move(socket);
    socket_->setReadBufferSize(readBufferBytes);
    socket_->setSslConfiguration(order_.tls);
    socket_->setPeerVerifyName(host());
    const QSslSocket* const sender = socket_.get();
    QObject::connect(sender, &QSslSocket::encrypted, &receiver_, [this] { sendRequest(); });
    QObject::connect(sender, &QSslSocket::readyRead, &receiver_, [this] { takeBytes(); });
    QObject::connect(sender, &QSslSocket::errorOccurred, &receiver_, [this] { takeTheRest(); });
    QObject::connect(sender, &QSslSocket::alertReceived, &receiver_,
                     [this](QSsl::AlertLevel, QSsl::AlertType type) {
                       saidGoodbye_ = saidGoodbye_ || type == QSsl::AlertType::CloseNotify;
                     });
    socket_->startClientEncryption();
  }

  void sendRequest() {
    if (ended_) { return; }
    lastArrival_ = executor_.now();
    // Qt is content with a common name, whatever the other names say.
    if (!namesHost(socket_->peerCertificate(), host())) {
      end(std::unexpected(HttpFailure::other));
      return;
    }
    request_ = requestBytes(order_.url, order_.headers);
    socket_->write(request_);
  }

  void takeBytes() {
    if (ended_) { return; }
    lastArrival_ = executor_.now();
    const QByteArray bytes = socket_->readAll();
    switch (reader_.read({bytes.constData(), static_cast<std::size_t>(bytes.size())})) {
      case ResponseReader::State::unfinished:
        return;
      case ResponseReader::State::complete:
        end(reader_.takeAnswer());
        return;
      case ResponseReader::State::broken:
        end(std::unexpected(HttpFailure::other));
        return;
    }
  }

  // An answer that the end of the connection ends is whole if the server said that this is the end.
  void takeTheRest() {
    takeBytes();
    if (saidGoodbye_ && reader_.isWholeAtEnd()) {
      end(reader_.takeAnswer());
    } else {
      end(std::unexpected(socketFailure(socket_->error(), true)));
    }
  }

  // One timer that looks again costs less than one that every arrival sets anew.
  void watchTheTime() {
    const Instant deadline = std::min(lastArrival_ + order_.limits.idle, order_.limits.end);
    if (executor_.now() >= deadline) {
      end(std::unexpected(HttpFailure::timedOut));
      return;
    }
    timer_ = executor_.schedule(deadline, [this] { watchTheTime(); });
  }

  // The socket goes with the exchange, which the task drops; it may be in the middle of a signal.
  void end(ExchangeResult result) {
    if (std::exchange(ended_, true)) { return; }
    executor_.cancel(timer_);
    completion_.resolve(std::move(result));
  }

  Executor& executor_;
  ExchangeOrder order_;
  Completion<ExchangeResult> completion_;
  QByteArray request_;
  std::unique_ptr<QSslSocket> socket_;
  ResponseReader reader_;
  Instant lastArrival_;
  Executor::TimerId timer_ = 0;
  bool saidGoodbye_ = false;
  bool ended_ = false;
  QObject receiver_;  ///< of the socket's signals; late, so that none meets a half-destroyed object
  Dialing dialing_;
};
}  // namespace

Task<ExchangeResult> exchange(ExchangeOrder order) {
  const TaskContext context = co_await currentContext();
  Executor* const executor = context.executor;
  CompletionAwaiter<ExchangeResult>::Start start = [&](Completion<ExchangeResult> completion) {
    auto running =
        std::make_shared<HttpExchange>(*executor, std::move(order), std::move(completion));
    return [running = std::move(running)] {};  // dropping it ends the exchange
  };
  ExchangeResult whenCancelled = std::unexpected(HttpFailure::cancelled);
  co_return co_await untilResolved<ExchangeResult>(std::move(start), std::move(whenCancelled));
}
}  // namespace orvane
