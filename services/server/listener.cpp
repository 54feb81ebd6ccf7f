#include "services/server/listener.h"

#include <cerrno>
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

}  // namespace

Listener::Listener(std::uint16_t port) : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  require(socket_.isOpen(), "socket");
  const int on = 1;
  // Lets a port be taken again at once after its last connections ended; unlike SO_REUSEPORT it
  // never lets two running programs share one.
  require(::setsockopt(socket_.get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on) == 0, "setsockopt");
  sockaddr_in address = loopback(port);
  auto* const plain = reinterpret_cast<sockaddr*>(&address);
  require(::bind(socket_.get(), plain, sizeof address) == 0, "bind");
  require(::listen(socket_.get(), waitingClients) == 0, "listen");
  socklen_t size = sizeof address;
  require(::getsockname(socket_.get(), plain, &size) == 0, "getsockname");
  port_ = ntohs(address.sin_port);
}

FileDescriptor Listener::accept() const {
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

void Listener::interrupt() const { ::shutdown(socket_.get(), SHUT_RDWR); }

}  // namespace orvane::services
