#include "export/fingerprint.h"

#include <openssl/evp.h>

#include <array>
#include <fstream>
#include <memory>
#include <vector>

#include "errors.h"
#include "qvslmtranslate.h"

namespace host {

std::string Sha256OfFile(const std::string& path) {
  constexpr std::streamsize block = std::streamsize{256} * 1024;
  std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> const sum(EVP_MD_CTX_new(),
                                                                    EVP_MD_CTX_free);
  std::ifstream file(path, std::ios::binary);
  bool good = file.is_open() && EVP_DigestInit_ex(sum.get(), EVP_sha256(), nullptr) == 1;
  std::vector<char> bytes(block);
  while (good && file) {
    file.read(bytes.data(), block);
    good = EVP_DigestUpdate(sum.get(), bytes.data(), static_cast<std::size_t>(file.gcount())) == 1;
  }
  std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
  unsigned size = 0;
  if (!good || file.bad() || EVP_DigestFinal_ex(sum.get(), digest.data(), &size) != 1) {
    throw FileError("its bytes cannot be read", QV_CANNOT_OPEN);
  }
  constexpr const char* digits = "0123456789abcdef";
  std::string text;
  for (unsigned i = 0; i < size; ++i) {
    text += digits[digest[i] >> 4];
    text += digits[digest[i] & 0x0F];
  }
  return text;
}

}  // namespace host
