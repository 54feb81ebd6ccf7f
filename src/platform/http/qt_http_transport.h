#pragma once

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslConfiguration>
#include <QUrl>
#include <chrono>
#include <cstddef>
#include <expected>
#include <memory>
#include <optional>
#include <string>

#include "platform/async/completion.h"
#include "platform/async/executor.h"
#include "platform/http/http_transport.h"

namespace orvane {

/// The end of an answer as it came, a redirect too: following one is another exchange.
struct HttpAnswer {
  int status = 0;
  std::string body;
  QUrl location;  ///< empty unless the answer is a redirect
};

/// When an exchange is given up, as `timedOut` or, for a body that is too long, as `other`.
struct HttpExchangeLimits {
  ExecutorClock::duration idle{};  ///< gives up when nothing arrives for so long
  Instant end;                     ///< gives up then, whatever arrives
  std::size_t bodyBytes = 0;       ///< of the body as its reader gets it
};

/// One GET over a connection of its own, which ends with it: nothing of one request (connections,
/// cookies, credentials) is left for the next, and nothing waits or wakes between requests.
///
/// Exactly one request is sent. Qt's stack repeats a GET, without a word, when the connection is
/// lost before the answer has begun; here that counts as a lost connection.
class HttpExchange {
 public:
  using Result = std::expected<HttpAnswer, HttpFailure>;

  HttpExchange(Executor& executor, const QNetworkRequest& request, HttpExchangeLimits limits,
               Completion<Result> completion);
  /// Aborts what is under way.
  ~HttpExchange();
  HttpExchange(const HttpExchange&) = delete;
  HttpExchange& operator=(const HttpExchange&) = delete;

 private:
  void requestIsAboutToBeSent();
  void takeBody();
  void finish();
  void noteArrival() { lastArrival_ = executor_.now(); }
  void watchTheTime();
  void end(Result result);

  Executor& executor_;
  HttpExchangeLimits limits_;
  Completion<Result> completion_;
  QNetworkAccessManager manager_;
  std::unique_ptr<QNetworkReply> reply_;  ///< goes before the manager, which waits for its thread
  std::string body_;
  Instant lastArrival_;
  Executor::TimerId timer_ = 0;
  bool connected_ = false;
  bool ended_ = false;
  QObject receiver_;  ///< of the reply's signals; last, so that none meets a half-destroyed object
};

/// What a build or a test may want otherwise.
struct QtHttpOptions {
  std::string extraCaFile;  ///< PEM, trusted beside the system's authorities; empty: none
  /// An answer that goes on arriving is given up after so long, redirects included, as `timedOut`.
  std::chrono::seconds longestExchange{std::chrono::minutes(4)};
};

/// The transport on Qt's network stack: the system's proxy and certificate authorities, HTTP/1.1,
/// a connection for each request, and no cookie, cache or credential that outlives one. A request
/// carries the headers it was given and those that the stack adds (Host, Connection, User-Agent,
/// Accept-Encoding, Accept-Language). At most five redirects are followed.
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
  [[nodiscard]] Task<HttpExchange::Result> exchange(const HttpRequest& request, QUrl url,
                                                    Instant end);
  [[nodiscard]] QNetworkRequest networkRequest(const HttpRequest& request, const QUrl& url) const;

  QtHttpOptions options_;
  std::optional<QSslConfiguration> tls_;  ///< nothing: Qt's own, which loads roots on demand
};

}  // namespace orvane
