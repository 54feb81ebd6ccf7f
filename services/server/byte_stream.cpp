#include "services/server/byte_stream.h"

#include <cerrno>
#include <utility>

#include <openssl/err.h>
#include <sys/socket.h>

namespace orvane::services {
namespace {

class PlainStream final : public ByteStream {
 public:
  explicit PlainStream(int socket) : socket_(socket) {}

  std::size_t read(std::span<char> buffer) override {
    while (true) {
      const ssize_t count = ::recv(socket_, buffer.data(), buffer.size(), 0);
      if (count >= 0) { return static_cast<std::size_t>(count); }
      if (errno != EINTR) { return 0; }
    }
  }

  bool write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const ssize_t count = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
      if (count < 0 && errno != EINTR) { return false; }
      if (count > 0) { bytes.remove_prefix(static_cast<std::size_t>(count)); }
    }
    return true;
  }

  void finish() override {}

 private:
  int socket_;
};

class TlsStream final : public ByteStream {
 public:
  explicit TlsStream(TlsSession session) : session_(std::move(session)) {}

  std::size_t read(std::span<char> buffer) override {
    std::size_t count = 0;
    ERR_clear_error();
    return SSL_read_ex(session_.get(), buffer.data(), buffer.size(), &count) == 1 ? count : 0;
  }

  bool write(std::string_view bytes) override {
    if (bytes.empty()) { return true; }
    std::size_t count = 0;
    ERR_clear_error();
    return SSL_write_ex(session_.get(), bytes.data(), bytes.size(), &count) == 1;
  }

  void finish() override {
    ERR_clear_error();
    SSL_shutdown(session_.get());
  }

 private:
  TlsSession session_;
};

}  // namespace

std::unique_ptr<ByteStream> makePlainStream(int socket) {
  return std::make_unique<PlainStream>(socket);
}

std::unique_ptr<ByteStream> makeTlsStream(int socket, SSL_CTX& context) {
  TlsSession session(SSL_new(&context));
  ERR_clear_error();
  if (session == nullptr || SSL_set_fd(session.get(), socket) != 1 ||
      SSL_accept(session.get()) != 1) {
    return nullptr;
  }
  return std::make_unique<TlsStream>(std::move(session));
}

}  // namespace orvane::services
