#include "bytes/random_bytes.h"

#include <cstdlib>

void random_bytes::fill(ByteSpan bytes) noexcept {
  for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(std::rand());
}

void random_bytes::fillWithASCII(ByteSpan bytes) noexcept {
  for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(kFirstASCII + std::rand() % kASCIICount);
}
