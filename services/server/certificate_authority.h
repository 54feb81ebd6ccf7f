#pragma once

#include <string>
#include "services/server/openssl_handles.h"

namespace orvane::services {
/// A certificate authority made at construction for one run. Its key stays in this object: only
/// servers that this process starts can ever hold a certificate that a client of it trusts.
class CertificateAuthority {
 public:
  /// Throws std::runtime_error when OpenSSL refuses.
  CertificateAuthority();

  /// The authority's own certificate, for the clients' list of trusted ones.
  [[nodiscard]] std::string certificatePem() const;

  /// What a TLS server needs to be believed as "localhost" and 127.0.0.1, or as other names (as
  /// OpenSSL writes them); the common name is "localhost" all the same.
  [[nodiscard]] TlsContext makeServerContext(
      const char* alternativeNames = "DNS:localhost,IP:127.0.0.1") const;

 private:
  PrivateKey key_;
  Certificate certificate_;
};
}  // namespace orvane::services
