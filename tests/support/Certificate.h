#pragma once

#include <memory>
#include <openssl/evp.h>
#include <openssl/x509.h>

namespace talmo::test {

/// A key and a certificate for it that only says itself who it is, both made anew: for a server
/// whose clients do not check.
class Certificate {
 public:
  /// Throws when the library cannot make them.
  Certificate();

  X509* certificate() const { return certificate_.get(); }
  EVP_PKEY* key() const { return key_.get(); }

 private:
  std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> key_;
  std::unique_ptr<X509, decltype(&X509_free)> certificate_;
};

}  // namespace talmo::test
