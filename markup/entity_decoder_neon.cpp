#include "markup/entity_decoder.h"

#ifdef WIDE_NEON

#include <algorithm>

#include "markup/entity_lookup.h"
#include "markup/reference_name.h"
#include "wide/neon.h"

namespace {

using entity_decoder::ReferenceName;

/// Code points that are looked at together.
constexpr std::size_t kStep = 16;

struct CodePoints {
  uint32x4_t fours[4];
};

[[nodiscard]] NEON_FUNCTION inline CodePoints load(const char32_t* at) noexcept {
  const auto* const units = reinterpret_cast<const std::uint32_t*>(at);
  return {{vld1q_u32(units), vld1q_u32(units + 4), vld1q_u32(units + 8), vld1q_u32(units + 12)}};
}

[[nodiscard]] NEON_FUNCTION inline bool holdsAmpersand(const CodePoints& codePoints) noexcept {
  const uint32x4_t ampersand = vdupq_n_u32('&');
  const auto& fours = codePoints.fours;
  const uint32x4_t found = vorrq_u32(vorrq_u32(vceqq_u32(fours[0], ampersand), vceqq_u32(fours[1], ampersand)),
                                     vorrq_u32(vceqq_u32(fours[2], ampersand), vceqq_u32(fours[3], ampersand)));
  return wide::any(vreinterpretq_u8_u32(found));
}

NEON_FUNCTION inline void store(const CodePoints& codePoints, char32_t* to) noexcept {
  auto* const units = reinterpret_cast<std::uint32_t*>(to);
  for (std::size_t i = 0; i < 4; ++i) vst1q_u32(units + 4 * i, codePoints.fours[i]);
}

/// The character that a name stands for, or 0.
[[nodiscard]] NEON_FUNCTION inline std::uint32_t characterFor(ReferenceName name) noexcept {
  if (isNumeric(name)) return numericValue(name);
  return mayBeEntity(name) ? entities::neon::codeOf(name.packed) : 0;
}

}  // namespace

NEON_FUNCTION bool entity_decoder::neon::mayHaveReferences(Utf32View text) noexcept {
  for (; text.size() >= kStep; text = text.subspan(kStep)) {
    if (holdsAmpersand(load(text.data()))) return true;
  }
  return scalar::mayHaveReferences(text);
}

NEON_FUNCTION std::size_t entity_decoder::neon::decode(Utf32View text, std::span<char32_t> decoded) noexcept {
  const char32_t* at = text.data();
  const char32_t* const end = at + text.size();
  char32_t* out = decoded.data();
  while (at != end) {
    if (static_cast<std::size_t>(end - at) >= kStep) {
      const CodePoints codePoints = load(at);
      if (!holdsAmpersand(codePoints)) {
        store(codePoints, out);
        at += kStep;
        out += kStep;
        continue;
      }
    }
    while (at != end && *at != '&') *out++ = *at++;
    if (at == end) break;
    const ReferenceName name = readName(at + 1, end);
    const std::uint32_t character = characterFor(name);
    *out++ = character != 0 ? character : U'&';
    at += character != 0 ? std::min<std::ptrdiff_t>(name.length + 2, end - at) : 1;
  }
  return static_cast<std::size_t>(out - decoded.data());
}

#endif  // WIDE_NEON
