#include "services/server/http_server.h"
#include <cerrno>
#include <csignal>
#include <system_error>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace orvane::services {
namespace {
constexpr int waitingClients = 128;

void require(bool succeeded, const char* what) {
  if (!succeeded) { throw std::system_error(errno, std::generic_category(), what); }
}

sockaddr_in loopback(std::uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

/// Signals belong to the program that these threads are part of. With SIGPIPE among the blocked
/// ones, writing to a client that is gone is an error like any other, as OpenSSL's writes need.
void blockSignals() {
  sigset_t all;
  sigfillset(&all);
  pthread_sigmask(SIG_BLOCK, &all, nullptr);
}
}  // namespace

Outcome sendAnswer(Connection& connection, const Request& request, const Response& response) {
  const bool keepAlive = wantsKeepAlive(request);
  if (!connection.send(response, keepAlive)) { return Outcome::cut; }
  return keepAlive ? Outcome::keep : Outcome::finish;
}

/// A listening socket on 127.0.0.1 and nowhere else.
class HttpServer::Listener {
 public:
  explicit Listener(std::uint16_t port)
      : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    require(socket_.isOpen(), "socket");
    const int on = 1;
    // Lets a port be taken again at once after its last connections ended; unlike SO_REUSEPORT it
    // never lets two running programs share one.
    require(::setsockopt(socket_.get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on) == 0,
            "setsockopt");
    sockaddr_in address = loopback(port);
    auto* const plain = reinterpret_cast<sockaddr*>(&address);
    require(::bind(socket_.get(), plain, sizeof address) == 0, "bind");
    require(::listen(socket_.get(), waitingClients) == 0, "listen");
    socklen_t size = sizeof address;
    require(::getsockname(socket_.get(), plain, &size) == 0, "getsockname");
    port_ = ntohs(address.sin_port);
  }

  [[nodiscard]] std::uint16_t port() const { return port_; }

  /// Waits for a client. A descriptor that is not open means the end: see `interrupt`.
  [[nodiscard]] FileDescriptor accept() const {
    while (true) {
      FileDescriptor client(::accept4(socket_.get(), nullptr, nullptr, SOCK_CLOEXEC));
      if (client.isOpen()) {
        const int on = 1;
        ::setsockopt(client.get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        return client;
      }
      if (errno != EINTR && errno != ECONNABORTED) { return client; }
    }
  }

  /// Ends a waiting `accept` and all later ones; may be called from any thread.
  void interrupt() const { ::shutdown(socket_.get(), SHUT_RDWR); }

 private:
  FileDescriptor socket_;
  std::uint16_t port_ = 0;
};

HttpServer::HttpServer(std::uint16_t port, TlsContext tls, Handler handler)
    : tls_(std::move(tls)), handler_(std::move(handler)), port_(port) {
  open();
}

HttpServer::~HttpServer() { close(); }

void HttpServer::open() {
  const std::lock_guard lock(opening_);
  if (listener_) { return; }
  listener_ = std::make_unique<Listener>(port_);
  port_ = listener_->port();
  accepting_ = std::jthread([this] { acceptClients(); });
}

void HttpServer::close() {
  const std::lock_guard lock(opening_);
  if (!listener_) { return; }
  listener_->interrupt();
  accepting_.join();
  listener_.reset();
  for (const Client& client : clients_) {
    client.connection.cut();
  }
  clients_.clear();
}

void HttpServer::acceptClients() {
  blockSignals();
  while (true) {
    FileDescriptor socket = listener_->accept();
    if (!socket.isOpen()) { return; }
    clients_.remove_if([](const Client& client) { return client.finished.load(); });
    Client& client = clients_.emplace_back(std::move(socket), tls_.get());
    client.thread = std::jthread([this, &client] { serve(client); });
  }
}

void HttpServer::serve(Client& client) const {
  blockSignals();
  Outcome outcome = Outcome::keep;
  while (outcome == Outcome::keep) {
    const std::optional<Request> request = client.connection.receive();
    outcome = request ? handler_(*request, client.connection) : Outcome::finish;
  }
  if (outcome == Outcome::finish) {
    client.connection.finish();
  } else {
    client.connection.cut();
  }
  client.finished = true;
}
}  // namespace orvane::services
