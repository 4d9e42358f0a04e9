#include "markup/entity_decoder.h"

#include <algorithm>
#include <cstring>

#include "markup/entity_lookup.h"
#include "markup/reference_name.h"

namespace {

/// Code points that are looked at together.
constexpr std::size_t kBlock = 16;

[[nodiscard]] bool holdsAmpersand(const char32_t* block) noexcept {
  unsigned found = 0;
  for (std::size_t i = 0; i < kBlock; ++i) found |= block[i] == '&' ? 1 : 0;  // without branches: to be widened
  return found != 0;
}

/// The character that a name stands for, or 0.
[[nodiscard]] std::uint32_t characterFor(entity_decoder::ReferenceName name) noexcept {
  if (isNumeric(name)) return numericValue(name);
  return mayBeEntity(name) ? entities::scalar::codeOf(name.packed) : 0;
}

}  // namespace

bool entity_decoder::scalar::mayHaveReferences(Utf32View text) noexcept {
  for (; text.size() >= kBlock; text = text.subspan(kBlock)) {
    if (holdsAmpersand(text.data())) return true;
  }
  return std::find(text.begin(), text.end(), U'&') != text.end();
}

std::size_t entity_decoder::scalar::decode(Utf32View text, std::span<char32_t> decoded) noexcept {
  const char32_t* at = text.data();
  const char32_t* const end = at + text.size();
  char32_t* out = decoded.data();
  while (at != end) {
    if (static_cast<std::size_t>(end - at) >= kBlock && !holdsAmpersand(at)) {
      std::memcpy(out, at, kBlock * sizeof *at);
      at += kBlock;
      out += kBlock;
      continue;
    }
    while (at != end && *at != '&') *out++ = *at++;
    if (at == end) break;
    const ReferenceName name = readName(at + 1, end);
    const std::uint32_t character = characterFor(name);
    *out++ = character != 0 ? character : U'&';
    at += character != 0 ? std::min(static_cast<std::ptrdiff_t>(name.length) + 2, end - at) : 1;
  }
  return static_cast<std::size_t>(out - decoded.data());
}

bool entity_decoder::mayHaveReferences(Utf32View text) noexcept {
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) return avx2::mayHaveReferences(text);
#endif
#ifdef WIDE_NEON
  if (cpu::hasNeon()) return neon::mayHaveReferences(text);
#endif
  return scalar::mayHaveReferences(text);
}

std::size_t entity_decoder::decode(Utf32View text, std::span<char32_t> decoded) noexcept {
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) return avx2::decode(text, decoded);
#endif
#ifdef WIDE_NEON
  if (cpu::hasNeon()) return neon::decode(text, decoded);
#endif
  return scalar::decode(text, decoded);
}
