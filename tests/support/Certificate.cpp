#include "tests/support/Certificate.h"

#include <cstdint>
#include <openssl/asn1.h>
#include <openssl/bio.h>
#include <openssl/ec.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509v3.h>
#include <stdexcept>

namespace talmo::test {
namespace {

void check(bool isGood, const char* what) {
  if (!isGood) throw std::runtime_error(std::string("no certificate: ") + what);
}

}  // namespace

Certificate::Certificate()
    : key_(EVP_EC_gen("P-256"), &EVP_PKEY_free), certificate_(X509_new(), &X509_free) {
  fill("imitation", certificate_.get());
  extend(NID_basic_constraints, "critical,CA:TRUE");
  sign(key_.get());
}

Certificate::Certificate(const Certificate& issuer, const std::string& serverNames)
    : key_(EVP_EC_gen("P-256"), &EVP_PKEY_free), certificate_(X509_new(), &X509_free) {
  fill("server", issuer.certificate());
  extend(NID_subject_alt_name, serverNames);
  sign(issuer.key());
}

void Certificate::fill(const char* name, const X509* issuer) {
  check(key_ != nullptr, "key");
  X509* made = certificate_.get();
  check(made != nullptr, "memory");
  constexpr long version3 = 2;
  check(X509_set_version(made, version3) == 1, "version");
  std::uint32_t number = 0;
  check(RAND_bytes(reinterpret_cast<unsigned char*>(&number), sizeof number) == 1, "random");
  check(ASN1_INTEGER_set_uint64(X509_get_serialNumber(made), number) == 1, "number");
  constexpr long hour = 3600;
  check(X509_gmtime_adj(X509_getm_notBefore(made), -hour) != nullptr, "begin");
  check(X509_gmtime_adj(X509_getm_notAfter(made), 24 * hour) != nullptr, "end");
  check(X509_NAME_add_entry_by_NID(X509_get_subject_name(made), NID_commonName, MBSTRING_ASC,
                                   reinterpret_cast<const unsigned char*>(name), -1, -1, 0) == 1,
        "name");
  check(X509_set_issuer_name(made, X509_get_subject_name(issuer)) == 1, "issuer");
  check(X509_set_pubkey(made, key_.get()) == 1, "public key");
}

void Certificate::extend(int extension, const std::string& value) {
  const std::unique_ptr<X509_EXTENSION, decltype(&X509_EXTENSION_free)> made(
      X509V3_EXT_conf_nid(nullptr, nullptr, extension, value.c_str()), &X509_EXTENSION_free);
  check(made != nullptr, value.c_str());
  check(X509_add_ext(certificate_.get(), made.get(), -1) == 1, "extension");
}

void Certificate::sign(EVP_PKEY* issuer) {
  check(X509_sign(certificate_.get(), issuer, EVP_sha256()) != 0, "signature");
}

std::string Certificate::pem() const {
  const std::unique_ptr<BIO, decltype(&BIO_free)> text(BIO_new(BIO_s_mem()), &BIO_free);
  check(text != nullptr && PEM_write_bio_X509(text.get(), certificate_.get()) == 1, "text");
  char* start = nullptr;
  const long length = BIO_get_mem_data(text.get(), &start);
  return {start, static_cast<std::size_t>(length)};
}

}  // namespace talmo::test
