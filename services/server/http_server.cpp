#include "services/server/http_server.h"

#include <csignal>
#include <utility>

namespace orvane::services {
namespace {

/// Signals belong to the program that these threads are part of. With SIGPIPE among the blocked
/// ones, writing to a client that is gone is an error like any other, as OpenSSL's writes need.
void blockSignals() {
  sigset_t all;
  sigfillset(&all);
  pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

}  // namespace

HttpServer::HttpServer(std::uint16_t port, TlsContext tls, Handler handler)
    : tls_(std::move(tls)), handler_(std::move(handler)), port_(port) {
  open();
}

HttpServer::~HttpServer() { close(); }

void HttpServer::open() {
  const std::lock_guard lock(opening_);
  if (listener_) { return; }
  listener_.emplace(port_);
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
