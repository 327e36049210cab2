#include "tests/support/Certificate.h"

#include <openssl/asn1.h>
#include <openssl/ec.h>
#include <stdexcept>

namespace talmo::test {
namespace {

void check(bool isGood, const char* what) {
  if (!isGood) throw std::runtime_error(std::string("no certificate: ") + what);
}

}  // namespace

Certificate::Certificate()
    : key_(EVP_EC_gen("P-256"), &EVP_PKEY_free), certificate_(X509_new(), &X509_free) {
  check(key_ != nullptr, "key");
  X509* made = certificate_.get();
  check(made != nullptr, "memory");
  constexpr long version3 = 2;
  check(X509_set_version(made, version3) == 1, "version");
  check(ASN1_INTEGER_set(X509_get_serialNumber(made), 1) == 1, "number");
  constexpr long hour = 3600;
  check(X509_gmtime_adj(X509_getm_notBefore(made), -hour) != nullptr, "begin");
  check(X509_gmtime_adj(X509_getm_notAfter(made), 24 * hour) != nullptr, "end");
  X509_NAME* name = X509_get_subject_name(made);
  check(X509_NAME_add_entry_by_NID(name, NID_commonName, MBSTRING_ASC,
                                   reinterpret_cast<const unsigned char*>("imitation"), -1, -1,
                                   0) == 1,
        "name");
  check(X509_set_issuer_name(made, name) == 1, "issuer");
  check(X509_set_pubkey(made, key_.get()) == 1, "public key");
  check(X509_sign(made, key_.get(), EVP_sha256()) != 0, "signature");
}

}  // namespace talmo::test
