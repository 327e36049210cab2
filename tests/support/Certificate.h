#pragma once

#include <memory>
#include <openssl/evp.h>
#include <openssl/x509.h>
#include <string>

namespace talmo::test {

/// A key and a certificate for it, both made anew.
class Certificate {
 public:
  /// One that only says itself who it is: for a server whose clients do not check, or to issue
  /// others. Throws when the library cannot make it.
  Certificate();

  /// A server's, issued by `issuer`. The server's names are in OpenSSL's words: "DNS:localhost,
  /// IP:127.0.0.1".
  Certificate(const Certificate& issuer, const std::string& serverNames);

  X509* certificate() const { return certificate_.get(); }
  EVP_PKEY* key() const { return key_.get(); }

  /// The certificate without the key, in the form that programs read.
  std::string pem() const;

 private:
  void fill(const char* name, const X509* issuer);
  void extend(int extension, const std::string& value);
  void sign(EVP_PKEY* issuer);

  std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> key_;
  std::unique_ptr<X509, decltype(&X509_free)> certificate_;
};

}  // namespace talmo::test
