/// Single-byte character sets in vectors of 16 characters.
#include "codecs/charsets.h"

#ifdef WIDE_NEON

#include "wide/neon.h"

namespace {

using wide::all;
using wide::kVector;

/// 16 code units, the low halves apart from the high ones.
NEON_FUNCTION inline uint8x16x2_t split(const char16_t* units) noexcept {
  return vld2q_u8(reinterpret_cast<const std::uint8_t*>(units));
}

/// The number of each byte among the special ones, 32 or more for the others.
NEON_FUNCTION inline uint8x16_t specialNumbers(uint8x16_t bytes) noexcept { return vsubq_u8(bytes, all(0x80)); }

/// The bytes of 16 code units, and a mask of those that exist.
struct EncodedVector {
  uint8x16_t bytes;
  uint8x16_t found;
};

NEON_FUNCTION inline EncodedVector encoded(uint8x16x2_t units, const CharacterSet& set) noexcept {
  const uint8x16_t low = units.val[0];
  const uint8x16_t high = units.val[1];
  EncodedVector result{low, vceqq_u8(high, all(0))};
  if (set.isLatin1()) return result;
  result.found = vandq_u8(result.found, vcgeq_u8(specialNumbers(low), all(32)));
  if (!wide::any(vmvnq_u8(result.found))) return result;
  const uint8x16_t nibbles = vandq_u8(low, all(0x0F));
  for (std::size_t i = 0; i < set.rowCount(); ++i) {
    const CharacterSet::SpecialRow& row = set.row(i);
    const uint8x16_t lowEqual = vceqq_u8(wide::lookedUp(wide::load(row.low.data()), nibbles), low);
    const uint8x16_t highEqual = vceqq_u8(wide::lookedUp(wide::load(row.high.data()), nibbles), high);
    const uint8x16_t equal = vandq_u8(lowEqual, highEqual);
    result.bytes = vbslq_u8(equal, wide::lookedUp(wide::load(row.byte.data()), nibbles), result.bytes);
    result.found = vorrq_u8(result.found, equal);
  }
  return result;
}

}  // namespace

NEON_FUNCTION std::size_t charsets::neon::encode(Utf16View text, const CharacterSet& set, ByteSpan bytes) noexcept {
  std::uint8_t* out = bytes.data();
  for (; text.size() >= kVector; text = text.subspan(kVector)) {
    const EncodedVector vector = encoded(split(text.data()), set);
    if (wide::any(vmvnq_u8(vector.found))) {
      out = wide::storeKept(out, vector.bytes, wide::bits(vector.found));
    } else {
      wide::store(out, vector.bytes);
      out += kVector;
    }
  }
  const auto done = static_cast<std::size_t>(out - bytes.data());
  return done + scalar::encode(text, set, bytes.subspan(done));
}

NEON_FUNCTION void charsets::neon::decode(ByteView bytes, const CharacterSet& set, std::span<char16_t> text) noexcept {
  const uint8x16x2_t front = split(&set.characters[0x80]);
  const uint8x16x2_t back = split(&set.characters[0x90]);
  const wide::Block low{front.val[0], back.val[0]};
  const wide::Block high{front.val[1], back.val[1]};
  std::size_t i = 0;
  for (; bytes.size() - i >= kVector; i += kVector) {
    const uint8x16_t vector = wide::load(bytes.data() + i);
    const uint8x16_t numbers = specialNumbers(vector);
    const uint8x16x2_t units{{wide::lookedUp(low, numbers, vector), wide::lookedUp(high, numbers, all(0))}};
    vst2q_u8(reinterpret_cast<std::uint8_t*>(text.data() + i), units);
  }
  scalar::decode(bytes.subspan(i), set, text.subspan(i));
}

#endif  // WIDE_NEON
