#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "services/server/openssl_handles.h"

namespace orvane::services {

/// The bytes of one accepted connection, in clear or through TLS. Calls block; shutting the
/// socket down from another thread ends them.
class ByteStream {
 public:
  virtual ~ByteStream() = default;

  /// How many bytes were read into `buffer`; 0 when the peer has finished or is gone.
  [[nodiscard]] virtual std::size_t read(std::span<char> buffer) = 0;

  /// Whether every byte was taken.
  [[nodiscard]] virtual bool write(std::string_view bytes) = 0;

  /// Tells the peer that nothing will follow. A stream that is dropped without this looks to the
  /// peer like a connection that was lost.
  virtual void finish() = 0;
};

[[nodiscard]] std::unique_ptr<ByteStream> makePlainStream(int socket);

/// Shakes hands as a server; null when the peer does not agree, for example because it does not
/// trust the certificate.
[[nodiscard]] std::unique_ptr<ByteStream> makeTlsStream(int socket, SSL_CTX& context);

}  // namespace orvane::services
