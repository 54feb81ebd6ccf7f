#pragma once

#include <cstdint>

#include "services/server/file_descriptor.h"

namespace orvane::services {

/// A listening socket on 127.0.0.1 and nowhere else.
class Listener {
 public:
  /// Port 0 lets the system choose. Throws std::system_error when the port is taken.
  explicit Listener(std::uint16_t port);

  [[nodiscard]] std::uint16_t port() const { return port_; }

  /// Waits for a client. A descriptor that is not open means the end: see `interrupt`.
  [[nodiscard]] FileDescriptor accept() const;

  /// Ends a waiting `accept` and all later ones; may be called from any thread.
  void interrupt() const;

 private:
  FileDescriptor socket_;
  std::uint16_t port_ = 0;
};

}  // namespace orvane::services
