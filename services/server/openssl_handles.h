#pragma once

#include <memory>
#include <openssl/evp.h>
#include <openssl/ssl.h>
#include <openssl/x509.h>

namespace orvane::services {
/// Frees an OpenSSL object with the function made for it.
template <auto free>
struct OpensslDeleter {
  template <typename T>
  void operator()(T* object) const {
    free(object);
  }
};

using PrivateKey = std::unique_ptr<EVP_PKEY, OpensslDeleter<EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, OpensslDeleter<X509_free>>;
using TlsContext = std::unique_ptr<SSL_CTX, OpensslDeleter<SSL_CTX_free>>;
using TlsSession = std::unique_ptr<SSL, OpensslDeleter<SSL_free>>;
}  // namespace orvane::services
