#include "platform/http/qt_http_transport.h"
#include <QString>
#include <QTcpServer>
#include <QTcpSocket>
#include <cstdlib>
#include <gmock/gmock.h>
#include "platform/eventloop/real_time.h"
#include "services/local_services.h"
#include "services/server/certificate_authority.h"
#include "services/server/http_server.h"
#include "services/working_directory.h"
#include "support/temporary_folder.h"

namespace orvane::test { namespace {

using namespace std::chrono_literals;
using services::FaultKind;
using services::LocalServices;
using services::Outcome;
using services::Request;
using services::Service;

constexpr auto profileTarget = "/accounts/profile/json/btc/";

struct Oddity {
  Outcome afterwards = Outcome::keep;
  bool isPlain = false;
  const char* names = "DNS:localhost";
  std::string endless = {};  ///< sent after the answer for as long as it is taken
  int newestTls = 0;         ///< 0: any
};

/// A security policy that lets old versions of TLS through, as some machines still have it: what
/// refuses them then is the program alone. Read when OpenSSL is used for the first time.
const TemporaryFolder policy;
const bool isPermissive = [] {
  const std::string file = policy.path() / "openssl.cnf";
  std::ofstream(file) << "openssl_conf = a\n[a]\nssl_conf = b\n[b]\nsystem_default = c\n[c]\n"
                         "MinProtocol = TLSv1\nCipherString = DEFAULT@SECLEVEL=0\n";
  return ::setenv("OPENSSL_CONF", file.c_str(), 1) == 0;
}();

/// An HTTPS server that sends the bytes a test hands it, and remembers what it was asked.
class OddServer {
 public:
  explicit OddServer(std::function<std::string(const Request&)> answer, Oddity oddity = {})
      : server_(0, contextFor(oddity),
                [this, answer, oddity](const Request& request, auto& connection) {
                  const std::lock_guard lock(mutex_);
                  requests_.push_back(request);
                  bool isTaken = connection.write(answer(request));
                  while (isTaken && !oddity.endless.empty()) {
                    isTaken = connection.write(oddity.endless);
                  }
                  return isTaken ? oddity.afterwards : Outcome::cut;
                }) {
    std::ofstream(caFile()) << authority_.certificatePem();
  }

  [[nodiscard]] std::string caFile() const { return directory_.path() / "ca.pem"; }
  [[nodiscard]] std::string host() const { return "localhost:" + std::to_string(server_.port()); }
  [[nodiscard]] std::vector<Request> requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
  }

 private:
  [[nodiscard]] services::TlsContext contextFor(const Oddity& oddity) const {
    if (oddity.isPlain) { return nullptr; }
    services::TlsContext context = authority_.makeServerContext(oddity.names);
    if (oddity.newestTls != 0) { SSL_CTX_set_min_proto_version(context.get(), TLS1_VERSION); }
    SSL_CTX_set_max_proto_version(context.get(), oddity.newestTls);
    return context;
  }

  mutable std::mutex mutex_;
  std::vector<Request> requests_;
  services::WorkingDirectory directory_{{}};
  services::CertificateAuthority authority_;
  services::HttpServer server_;
};

/// The real transport in front of the local services.
class QtHttpTransportTest : public RealTimeTest {
 protected:
  HttpResult get(HttpRequest request) { return run(transport.get(std::move(request))); }
  HttpResult getFrom(const OddServer& server) {
    QtHttpTransport odd({.extraCaFile = server.caFile()});
    return run(odd.get({.url = "https://" + server.host(), .idleTimeout = 20s}));
  }
  static void expectFailure(const HttpResult& result, HttpFailure failure) {
    ASSERT_FALSE(result) << "status " << result->status;
    EXPECT_EQ(result.error(), failure);
  }

  LocalServices local;
  const HttpRequest tipRequest{
      .url = "https://" + local.host(Service::explorer) + "/api/blocks/tip/height",
      .idleTimeout = 20s};
  const HttpRequest profileRequest{
      .url = "https://" + local.host(Service::pool) + profileTarget,
      .headers = {{"Pool-Auth-Token", std::string(services::sampleToken)}},
      .idleTimeout = 20s};
  QtHttpTransport transport{{.extraCaFile = local.caFile()}};
};

TEST_F(QtHttpTransportTest, TheRequestHasOneHeaderBeyondTheStacks) {
  EXPECT_THAT(get(profileRequest).value().body, testing::EndsWith("}"));
  ASSERT_EQ(local.requests().size(), 1U);
  std::vector<std::string> names;
  const auto request = local.requests().front();
  for (const services::Header& header : request.headers) {
    names.push_back(QString::fromStdString(header.name).toLower().toStdString());  // Qt 6.8 does
  }
  EXPECT_THAT(names, testing::UnorderedElementsAre("accept-encoding", "connection", "host",
                                                   "pool-auth-token", "user-agent"));
}

TEST_F(QtHttpTransportTest, EveryStatusIsAnAnswer) {
  for (const int status : {204, 401, 407, 429, 599}) {
    local.fault({.service = Service::explorer, .count = 1, .status = status});
    EXPECT_EQ(get(tipRequest).value_or(HttpResponse{}).status, status);
  }
  EXPECT_EQ(local.requests().size(), 5U);
}

std::string emptyAnswer(const std::string& statusAndHeaders) {
  return "HTTP/1.1 " + statusAndHeaders + "\r\nContent-Length: 0\r\n\r\n";
}

TEST_F(QtHttpTransportTest, RedirectsStayWithinTheOriginAndHeadersAreTheCallersToSendOn) {
  local.fault({.service = Service::explorer, .kind = FaultKind::redirectWithin, .count = 1});
  EXPECT_EQ(get(tipRequest).value().status, 200);
  EXPECT_EQ(local.requests().back().target, "/moved/api/blocks/tip/height");
  local.fault({.service = Service::pool, .kind = FaultKind::redirectWithin, .count = 1});
  const HttpResponse moved = get(profileRequest).value();
  EXPECT_EQ(moved.status, 302);
  EXPECT_EQ(moved.redirect, "https://" + local.host(Service::pool) + "/moved" + profileTarget);
  EXPECT_EQ(local.requests(Service::pool).size(), 1U);

  for (const auto& [service, request] :
       {std::pair(Service::pool, profileRequest), std::pair(Service::explorer, tipRequest)}) {
    local.fault({.service = service, .kind = FaultKind::redirect});
    const HttpResponse answer = get(request).value();
    EXPECT_EQ(answer.status, 302);
    EXPECT_EQ(answer.redirect, "");
  }
  EXPECT_TRUE(local.requests(Service::other).empty());
}

TEST_F(QtHttpTransportTest, ACertificateForAnotherNameIsRefusedWhateverItsCommonName) {
  const OddServer server([](const Request&) { return emptyAnswer("200 OK"); },
                         {.names = "DNS:elsewhere.example"});
  expectFailure(getFrom(server), HttpFailure::other);
  EXPECT_TRUE(server.requests().empty());
}

TEST_F(QtHttpTransportTest, ServersThatKnowNoTlsOfThisDecadeAreRefused) {
  ASSERT_TRUE(isPermissive);
  for (const auto& [version, isSpoken] :
       {std::pair(TLS1_2_VERSION, true), {TLS1_1_VERSION, false}}) {
    const OddServer server([](const Request&) { return emptyAnswer("200 OK"); },
                           {.newestTls = version});
    EXPECT_EQ(getFrom(server).has_value(), isSpoken) << version;
  }
}

TEST_F(QtHttpTransportTest, RedirectsEndSomewhereAndACookieIsNeverSentBack) {
  const OddServer server(
      [](const Request&) { return emptyAnswer("302 Found\r\nSet-Cookie: a=b\r\nLocation: /on"); });
  EXPECT_EQ(getFrom(server).value().status, 302);
  EXPECT_EQ(server.requests().size(), 6U);
  for (const Request& request : server.requests()) {
    EXPECT_EQ(request.header("Cookie"), nullptr);
  }
}

TEST_F(QtHttpTransportTest, AChallengeIsAnAnswerAndNotAnsweredItself) {
  for (const std::string scheme : {"Basic realm=\"x\"", "Negotiate", "NTLM"}) {
    const OddServer server([&](const Request&) {
      return emptyAnswer("401 Unauthorized\r\nWWW-Authenticate: " + scheme);
    });
    EXPECT_EQ(getFrom(server).value().status, 401) << scheme;
    EXPECT_EQ(server.requests().size(), 1U) << scheme;
  }
}

TEST_F(QtHttpTransportTest, ALostConnectionIsALossAndTheRequestIsSentOnce) {
  for (const std::string beginning :
       {"", "HTTP/1.1 20", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n10\r\n0123"}) {
    const OddServer server([&](const Request&) { return beginning; }, {.afterwards = Outcome::cut});
    for (std::size_t request = 1; request <= 3; ++request) {
      expectFailure(getFrom(server), HttpFailure::networkConnectionLost);
      letPass(5ms);
      EXPECT_EQ(server.requests().size(), request) << beginning;
    }
  }
  local.fault({.service = Service::pool, .kind = FaultKind::drop});  // in the middle of the body
  expectFailure(get(profileRequest), HttpFailure::networkConnectionLost);
  EXPECT_EQ(local.requests().size(), 1U);
}

TEST_F(QtHttpTransportTest, ConnectionsAreNotKeptSoNoneCanBeStale) {
  ASSERT_TRUE(get(tipRequest));
  local.fault({.service = Service::explorer, .kind = FaultKind::refuse});  // ends open connections
  expectFailure(get(tipRequest), HttpFailure::cannotConnectToHost);
  local.clearFaults();
  EXPECT_TRUE(get(tipRequest));
}

TEST_F(QtHttpTransportTest, SilenceEndsAtTheIdleTimeOutAndAnEndlessDripAtTheLongestExchange) {
  QtHttpTransport impatient({.extraCaFile = local.caFile(), .longestExchange = 1s});
  HttpRequest request = tipRequest;
  request.idleTimeout = 1s;
  local.fault({.service = Service::explorer, .kind = FaultKind::silence, .count = 1});
  EXPECT_LT(timeOf([&] { expectFailure(get(request), HttpFailure::timedOut); }), 15s);
  local.fault({.service = Service::explorer, .kind = FaultKind::slow, .interval = 250ms});
  expectFailure(run(impatient.get(request)), HttpFailure::timedOut);
  EXPECT_EQ(get(request).value().body.size(), 6U) << "what drips is not idle";
}

TEST_F(QtHttpTransportTest, WhatNeverEndsIsEndedLongBeforeTheTimeOut) {
  const std::string ok = "HTTP/1.1 200 OK\r\n";
  const std::pair<std::string, std::string> cases[]{
      {ok + "X: ", std::string(1'000, 'a')},
      {ok, "X: a\r\n"},
      {"", "HTTP/1.1 100 Continue\r\n\r\n"},
      {ok + "\r\n", std::string(100'000, 'a')},
      {ok + "Transfer-Encoding: chunked\r\n\r\n", "1;" + std::string(1'000, 'x') + "\r\na\r\n"}};
  for (const auto& [beginning, endless] : cases) {
    const OddServer server([&](const Request&) { return beginning; }, {.endless = endless});
    EXPECT_LT(timeOf([&] { expectFailure(getFrom(server), HttpFailure::other); }), 10s) << endless;
  }
}

TEST_F(QtHttpTransportTest, TheEndOfAConnectionEndsAnAnswerOnlyIfTheServerSaysSo) {
  const std::string ok = "HTTP/1.1 200 OK\r\n";
  for (const auto& [answer, isSaid, isWhole] :
       {std::tuple(ok + "\r\nall", true, true),
        {ok + "\r\nall", false, false},
        {ok + "Content-Length: 3\r\n\r\nall", false, true},
        {ok + "Content-Length: 4\r\n\r\nall", true, false}}) {
    const OddServer server([&](const Request&) { return answer; },
                           {.afterwards = isSaid ? Outcome::finish : Outcome::cut});
    const HttpResult result = getFrom(server);
    EXPECT_EQ(result.value_or(HttpResponse{}).body, isWhole ? "all" : "") << answer;
    if (!isWhole) { expectFailure(result, HttpFailure::networkConnectionLost); }
  }
}

TEST_F(QtHttpTransportTest, TheLargestBodyIsWhole) {
  constexpr std::size_t limit = 32UL * 1024 * 1024;
  for (const std::size_t size : {limit, limit + 1}) {
    const OddServer server([size](const Request&) {
      return "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(size) + "\r\n\r\n" +
             std::string(size, 'a');
    });
    EXPECT_EQ(getFrom(server).value_or(HttpResponse{}).body.size(), size == limit ? size : 0);
  }
}

TEST_F(QtHttpTransportTest, WhatIsNotTrustedOrCannotBeSentFailsAndSendsNoRequest) {
  QtHttpTransport distrustful;
  expectFailure(run(distrustful.get(profileRequest)), HttpFailure::other);
  const std::string host = local.host(Service::pool);
  const std::string otherName = "https://[::ffff:127.0.0.1]" + host.substr(host.find(':'));
  expectFailure(get({.url = otherName}), HttpFailure::other);  // but the same machine
  expectFailure(get({.url = tipRequest.url, .headers = {{"X", "a\r\nY: b"}}}), HttpFailure::other);
  expectFailure(get({.url = "http://" + host}), HttpFailure::invalidUrl);
  QtHttpTransport without({.extraCaFile = {}, .resolver = [](const QUrl&) {
                             return Proxies{QNetworkProxy(QNetworkProxy::FtpCachingProxy)};
                           }});
  EXPECT_LT(
      timeOf([&] { expectFailure(run(without.get(tipRequest)), HttpFailure::cannotFindHost); }),
      10s)
      << "no proxy that carries it";
  EXPECT_TRUE(local.requests().empty());
}

TEST_F(QtHttpTransportTest, CancellingAbortsTheRequestAtOnce) {
  local.fault({.service = Service::explorer, .kind = FaultKind::silence});
  std::optional<HttpResult> result;
  QEventLoop loop;
  TaskScope scope(*executor);
  const TaskHandle task = scope.spawn(detail::keepResult(transport.get(tipRequest), result, loop));
  ASSERT_TRUE(letPassUntil([&] { return !local.requests().empty(); }));
  task.cancel();
  const auto time = timeOf([&] { loop.exec(); });
  expectFailure(result.value(), HttpFailure::cancelled);
  EXPECT_LT(time, 5s) << "the time-out is 20 seconds";
}

TEST_F(QtHttpTransportTest, DestructionInTheMiddleOfAnythingIsClean) {
  local.fault({.service = Service::explorer, .kind = FaultKind::slow, .interval = 1ms});
  for (const auto delay : {0ms, 1ms, 2ms, 3ms, 5ms, 8ms, 13ms}) {
    std::optional<HttpResult> result;
    QEventLoop loop;
    const auto time = timeOf([&] {
      TaskScope scope(*executor);
      scope.spawn(detail::keepResult(transport.get(tipRequest), result, loop));
      letPass(delay);
    });
    EXPECT_LT(time, 4s) << "Qt waits five seconds for a thread that does not end";
    EXPECT_FALSE(result && !*result) << "an end that nobody saw";
  }
}

/// A resolver that answers when it is let.
class SlowResolver {
 public:
  ~SlowResolver() { answer(); }
  [[nodiscard]] ProxyResolver resolver() const {
    return [state = state_](const QUrl&) {
      state->asked = std::this_thread::get_id();
      state->mayAnswer.wait(false);
      return Proxies{QNetworkProxy(QNetworkProxy::NoProxy)};
    };
  }
  [[nodiscard]] std::thread::id asked() const { return state_->asked; }
  void answer() {
    state_->mayAnswer = true;
    state_->mayAnswer.notify_all();
  }

 private:
  struct State {
    std::atomic<std::thread::id> asked;
    std::atomic<bool> mayAnswer = false;
  };
  std::shared_ptr<State> state_ = std::make_shared<State>();
};

TEST_F(QtHttpTransportTest, AResolverThatTakesItsTimeHoldsUpNothingButItsOwnRequest) {
  for (const auto& [end, failure] : {std::pair("time-out", std::optional(HttpFailure::timedOut)),
                                     {"cancelling", HttpFailure::cancelled},
                                     {"answer", std::nullopt}}) {
    SlowResolver slow;
    QtHttpTransport waiting({.extraCaFile = local.caFile(), .resolver = slow.resolver()});
    HttpRequest request = tipRequest;
    if (failure == HttpFailure::timedOut) { request.idleTimeout = 1s; }
    std::optional<HttpResult> result;
    QEventLoop loop;
    TaskScope scope(*executor);
    const TaskHandle task = scope.spawn(detail::keepResult(waiting.get(request), result, loop));
    ASSERT_TRUE(letPassUntil([&] { return slow.asked() != std::thread::id(); })) << end;
    EXPECT_NE(slow.asked(), std::this_thread::get_id());
    EXPECT_TRUE(isResolverAtWork());
    EXPECT_TRUE(get(profileRequest)) << end;
    EXPECT_TRUE(local.requests(Service::explorer).empty()) << end;
    if (!failure) { slow.answer(); }
    if (failure == HttpFailure::cancelled) { task.cancel(); }
    ASSERT_TRUE(letPassUntil([&] { return result.has_value(); })) << end;
    EXPECT_EQ(result->has_value() ? std::nullopt : std::optional(result->error()), failure) << end;
  }
}

TEST_F(QtHttpTransportTest, TheSystemsProxyIsAskedForATunnelAndSeesNoHeaders) {
  const OddServer proxy([](const Request&) { return emptyAnswer("403 Forbidden"); },
                        {.afterwards = Outcome::finish, .isPlain = true});
  ::setenv("https_proxy", ("http://" + proxy.host()).c_str(), 1);
  ::setenv("no_proxy", "", 1);
  EXPECT_FALSE(get(profileRequest));
  ::unsetenv("https_proxy");
  ::unsetenv("no_proxy");

  ASSERT_FALSE(proxy.requests().empty());
  for (const Request& request : proxy.requests()) {  // Qt 6.8 asks twice
    EXPECT_EQ(request.method + " " + request.target, "CONNECT " + local.host(Service::pool));
    EXPECT_EQ(request.header("Pool-Auth-Token"), nullptr);
  }
}

/// A proxy that carries connections, and keeps what it was told in clear.
class CarryingProxy {
 public:
  explicit CarryingProxy(QNetworkProxy::ProxyType type, quint16 target, QByteArray refusal = {})
      : type_(type), refusal_(std::move(refusal)) {
    QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this, target] {
      QTcpSocket* const client = server_.nextPendingConnection();
      auto* const host = new QTcpSocket(client);
      host->connectToHost(QHostAddress::LocalHost, target);
      QObject::connect(client, &QTcpSocket::readyRead, host, [=, this] { hear(*client, *host); });
      QObject::connect(host, &QTcpSocket::readyRead, client,
                       [=] { client->write(host->readAll()); });
    });
    server_.listen(QHostAddress::LocalHost);
  }
  [[nodiscard]] ProxyResolver resolver() const {
    return [proxy = QNetworkProxy(type_, "localhost", server_.serverPort())](const QUrl&) {
      return Proxies{QNetworkProxy(QNetworkProxy::FtpCachingProxy, "unfit.invalid", 1), proxy};
    };
  }
  [[nodiscard]] QByteArray heard() const { return heard_; }

 private:
  void hear(QTcpSocket& client, QTcpSocket& host) {
    if (isOpen_) {
      host.write(client.readAll());
      return;
    }
    const QByteArray bytes = client.readAll();
    heard_ += bytes;
    if (type_ == QNetworkProxy::Socks5Proxy) {
      isOpen_ = bytes != QByteArray("\5\1\0", 3);
      client.write(isOpen_ ? QByteArray("\5\0\0\1\0\0\0\0\0\0", 10) : QByteArray("\5\0", 2));
    } else if (heard_.endsWith("\r\n\r\n")) {
      isOpen_ = refusal_.isEmpty();
      client.write(isOpen_ ? "HTTP/1.1 200 Connected\r\n\r\n" : refusal_);
    }
  }

  QNetworkProxy::ProxyType type_;
  QByteArray refusal_;
  QByteArray heard_;
  bool isOpen_ = false;
  QTcpServer server_;
};

TEST_F(QtHttpTransportTest, AProxyCarriesTheExchangeAndReadsNothingButTheHost) {
  const std::string host = local.host(Service::explorer);
  const auto port = static_cast<quint16>(std::stoi(host.substr(host.find(':') + 1)));
  const QByteArray challenge =
      "HTTP/1.1 407 No\r\nProxy-Authenticate: Basic realm=\"x\"\r\nContent-Length: 0\r\n\r\n";
  for (const auto& [type, refusal] : {std::pair(QNetworkProxy::HttpProxy, QByteArray()),
                                      {QNetworkProxy::Socks5Proxy, QByteArray()},
                                      {QNetworkProxy::HttpProxy, challenge}}) {
    const CarryingProxy proxy(type, port, refusal);
    QtHttpTransport carried({.extraCaFile = local.caFile(), .resolver = proxy.resolver()});
    const HttpResult result = run(carried.get(tipRequest));
    EXPECT_EQ(result.has_value(), refusal.isEmpty());
    if (!refusal.isEmpty()) { expectFailure(result, HttpFailure::other); }
    EXPECT_TRUE(proxy.heard().contains("localhost")) << proxy.heard().toStdString();
    EXPECT_FALSE(proxy.heard().contains("GET")) << proxy.heard().toStdString();
  }
  EXPECT_EQ(local.requests().size(), 2U);
}

}}  // namespace orvane::test
