#include "services/server/certificate_authority.h"
#include <array>
#include <cstdint>
#include <stdexcept>
#include <openssl/bio.h>
#include <openssl/err.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509v3.h>

namespace orvane::services {
namespace {
constexpr long secondsPerDay = 86'400;
// A day back, so that a client whose clock is a little behind still believes the certificate.
constexpr long validFrom = -secondsPerDay;
constexpr long validFor = 365 * secondsPerDay;

void require(bool succeeded) {
  if (succeeded) { return; }
  std::array<char, 256> text{};
  ERR_error_string_n(ERR_get_error(), text.data(), text.size());
  throw std::runtime_error(text.data());
}

PrivateKey makeKey() {
  PrivateKey key(EVP_EC_gen("P-256"));
  require(key != nullptr);
  return key;
}

void addExtension(X509& certificate, X509& issuer, int kind, const char* value) {
  X509V3_CTX context;
  X509V3_set_ctx(&context, &issuer, &certificate, nullptr, nullptr, 0);
  X509_EXTENSION* extension = X509V3_EXT_conf_nid(nullptr, &context, kind, value);
  require(extension != nullptr);
  const int added = X509_add_ext(&certificate, extension, -1);
  X509_EXTENSION_free(extension);
  require(added == 1);
}

void setSerialNumber(X509& certificate) {
  std::uint64_t serial = 0;
  require(RAND_bytes(reinterpret_cast<unsigned char*>(&serial), sizeof serial) == 1);
  require(ASN1_INTEGER_set_uint64(X509_get_serialNumber(&certificate), serial >> 1) == 1);
}

void setName(X509& certificate, const char* name) {
  const auto* const bytes = reinterpret_cast<const unsigned char*>(name);
  require(X509_NAME_add_entry_by_txt(X509_get_subject_name(&certificate), "CN", MBSTRING_UTF8,
                                     bytes, -1, -1, 0) == 1);
}

Certificate makeCertificate(const char* name, EVP_PKEY& key) {
  Certificate certificate(X509_new());
  require(certificate != nullptr);
  require(X509_set_version(certificate.get(), X509_VERSION_3) == 1);
  setSerialNumber(*certificate);
  setName(*certificate, name);
  X509_gmtime_adj(X509_getm_notBefore(certificate.get()), validFrom);
  X509_gmtime_adj(X509_getm_notAfter(certificate.get()), validFor);
  require(X509_set_pubkey(certificate.get(), &key) == 1);
  return certificate;
}

/// The last step: whatever is changed afterwards makes the signature void.
void sign(X509& certificate, X509& issuer, EVP_PKEY& issuerKey) {
  require(X509_set_issuer_name(&certificate, X509_get_subject_name(&issuer)) == 1);
  addExtension(certificate, issuer, NID_subject_key_identifier, "hash");
  addExtension(certificate, issuer, NID_authority_key_identifier, "keyid:always");
  require(X509_sign(&certificate, &issuerKey, EVP_sha256()) > 0);
}
}  // namespace

CertificateAuthority::CertificateAuthority()
    : key_(makeKey()), certificate_(makeCertificate("Orvane local services", *key_)) {
  addExtension(*certificate_, *certificate_, NID_basic_constraints, "critical,CA:TRUE,pathlen:0");
  addExtension(*certificate_, *certificate_, NID_key_usage, "critical,keyCertSign,cRLSign");
  sign(*certificate_, *certificate_, *key_);
}

std::string CertificateAuthority::certificatePem() const {
  const std::unique_ptr<BIO, OpensslDeleter<BIO_free_all>> memory(BIO_new(BIO_s_mem()));
  require(memory != nullptr && PEM_write_bio_X509(memory.get(), certificate_.get()) == 1);
  char* text = nullptr;
  const long size = BIO_get_mem_data(memory.get(), &text);
  return {text, static_cast<std::size_t>(size)};
}

TlsContext CertificateAuthority::makeServerContext(const char* alternativeNames) const {
  const PrivateKey key = makeKey();
  const Certificate certificate = makeCertificate("localhost", *key);
  addExtension(*certificate, *certificate_, NID_basic_constraints, "critical,CA:FALSE");
  addExtension(*certificate, *certificate_, NID_key_usage, "critical,digitalSignature");
  addExtension(*certificate, *certificate_, NID_ext_key_usage, "serverAuth");
  addExtension(*certificate, *certificate_, NID_subject_alt_name, alternativeNames);
  sign(*certificate, *certificate_, *key_);

  TlsContext context(SSL_CTX_new(TLS_server_method()));
  require(context != nullptr);
  require(SSL_CTX_set_min_proto_version(context.get(), TLS1_2_VERSION) == 1);
  require(SSL_CTX_use_certificate(context.get(), certificate.get()) == 1);
  require(SSL_CTX_use_PrivateKey(context.get(), key.get()) == 1);
  return context;
}
}  // namespace orvane::services
