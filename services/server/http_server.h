#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <thread>
#include "services/server/connection.h"

namespace orvane::services {
/// What becomes of a connection after a request was answered.
enum class Outcome {
  keep,    ///< it may serve another request
  finish,  ///< it ends in good order
  cut,     ///< it ends as if the network had failed
};

/// Sends the whole answer and keeps the connection if the client wants that.
[[nodiscard]] Outcome sendAnswer(Connection& connection, const Request& request,
                                 const Response& response);

/// A small HTTP/1.1 server on loopback with a thread for each connection. It exists because what
/// these services are for lies below HTTP: refused and dropped connections, silence, bytes that
/// trickle, and an end of everything within milliseconds although clients are still connected.
class HttpServer {
 public:
  /// Called in the connection's thread, several at a time; sends the answer itself.
  using Handler = std::function<Outcome(const Request&, Connection&)>;

  /// Listens at once. `tls` may be null: HTTP in clear. Throws std::system_error when the port is
  /// taken.
  HttpServer(std::uint16_t port, TlsContext tls, Handler handler);
  ~HttpServer();
  HttpServer(const HttpServer&) = delete;
  HttpServer& operator=(const HttpServer&) = delete;

  [[nodiscard]] std::uint16_t port() const { return port_; }

  /// Refuses new connections and cuts the open ones; returns when no handler runs any more. Not
  /// to be called by a handler of this server.
  void close();

  /// Listens again, on the same port. Throws like the constructor.
  void open();

 private:
  class Listener;
  struct Client {
    Client(FileDescriptor socket, SSL_CTX* tls) : connection(std::move(socket), tls) {}

    Connection connection;
    std::atomic<bool> finished = false;
    std::jthread thread;
  };

  void acceptClients();
  void serve(Client& client) const;

  TlsContext tls_;
  Handler handler_;
  std::mutex opening_;
  std::unique_ptr<Listener> listener_;
  std::uint16_t port_;
  std::list<Client> clients_;  ///< touched by the accepting thread while there is one
  std::jthread accepting_;
};
}  // namespace orvane::services
