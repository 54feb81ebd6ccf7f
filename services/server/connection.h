#pragma once

#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <unistd.h>
#include "services/server/http_message.h"
#include "services/server/openssl_handles.h"

namespace orvane::services {
/// Owns one descriptor and closes it at the end of its life.
class FileDescriptor {
 public:
  FileDescriptor() = default;
  explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
  FileDescriptor(FileDescriptor&& other) noexcept
      : descriptor_(std::exchange(other.descriptor_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  ~FileDescriptor() {
    if (isOpen()) { ::close(descriptor_); }
  }

  [[nodiscard]] int get() const { return descriptor_; }
  [[nodiscard]] bool isOpen() const { return descriptor_ >= 0; }

 private:
  int descriptor_ = -1;
};

/// One accepted client, in clear or through TLS. It belongs to the thread that serves it, and its
/// calls block; only `cut` may be called from another thread, and it ends them.
class Connection {
 public:
  /// `tls` is null for a connection in clear; otherwise it must outlive the connection.
  Connection(FileDescriptor socket, SSL_CTX* tls) : socket_(std::move(socket)), tls_(tls) {}

  /// Reads the next request; none when the client has finished, is gone, does not trust the
  /// certificate or speaks no HTTP.
  [[nodiscard]] std::optional<Request> receive();

  /// Whether the whole answer was taken.
  [[nodiscard]] bool send(const Response& response, bool keepAlive);
  /// Sends bytes as they are, for answers that are wrong on purpose.
  [[nodiscard]] bool write(std::string_view bytes);

  /// Waits; false as soon as the client is gone or the connection was cut.
  [[nodiscard]] bool pause(std::chrono::milliseconds duration) const;
  /// Waits for the client to give up.
  void waitUntilGone() const;

  /// Ends the connection in good order.
  void finish();
  /// Ends the connection without a farewell, which looks to the client as if it were lost.
  void cut() const;

 private:
  [[nodiscard]] bool shakeHands();
  [[nodiscard]] std::size_t read(std::span<char> buffer) const;
  [[nodiscard]] bool readMore();
  [[nodiscard]] std::optional<std::string> takeHead();

  FileDescriptor socket_;
  SSL_CTX* tls_;
  TlsSession session_;  ///< once hands were shaken; never for a connection in clear
  std::string received_;
};
}  // namespace orvane::services
