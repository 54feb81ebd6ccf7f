#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "services/server/byte_stream.h"
#include "services/server/file_descriptor.h"
#include "services/server/http_message.h"

namespace orvane::services {

/// One accepted client. It belongs to the thread that serves it; only `cut` may be called from
/// another one.
class Connection {
 public:
  /// `tls` is null for a connection in clear; otherwise it must outlive the connection.
  Connection(FileDescriptor socket, SSL_CTX* tls);

  /// Reads the next request; none when the client has finished, is gone or speaks no HTTP.
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

  /// Ends the connection without a farewell, and every call that waits on it.
  void cut() const;

 private:
  [[nodiscard]] bool readMore();
  [[nodiscard]] std::optional<std::string> takeHead();

  FileDescriptor socket_;
  SSL_CTX* tls_;
  std::unique_ptr<ByteStream> stream_;
  std::string received_;
};

}  // namespace orvane::services
