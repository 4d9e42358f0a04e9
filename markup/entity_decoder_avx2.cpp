#include "markup/entity_decoder.h"

#ifdef WIDE_AVX2
#include <algorithm>
#include <bit>
#include <immintrin.h>

#include "markup/entity_lookup.h"
#include "markup/reference_name.h"
#include "memory/wrapping.h"
#include "wide/code_point_blocks.h"
#include "wide/vectors.h"

namespace {

using entity_decoder::ReferenceName;

constexpr std::ptrdiff_t kStep = 8;

[[nodiscard]] AVX2_FUNCTION inline __m256i load(const char32_t* at) noexcept {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(at));
}

[[nodiscard]] AVX2_FUNCTION inline __m256i isAmpersand(__m256i codePoints) noexcept {
  return _mm256_cmpeq_epi32(codePoints, _mm256_set1_epi32('&'));
}

/// The character that a name stands for, or 0.
[[nodiscard]] AVX2_FUNCTION inline std::uint32_t characterFor(ReferenceName name) noexcept {
  if (isNumeric(name)) return numericValue(name);
  return mayBeEntity(name) ? entities::avx2::codeOf(name.packed) : 0;
}

/// Copies at least `count` code points, in whole vectors, and at least one.
AVX2_FUNCTION inline void copyRun(const char32_t* from, std::size_t count, char32_t* to) noexcept {
  std::size_t i = 0;
  do {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(to + i), load(from + i));
    i += kStep;
  } while (i < count);
}

struct Progress {
  std::size_t read;
  std::size_t written;
};

/// Code points that are looked at together, and how many of them can begin a reference that ends among them.
constexpr unsigned kWindow = 64;
constexpr unsigned kStarts = kWindow - entities::kLongestName - 1;

/// Decodes a window, up to the first "&" whose reference may not end in it.
/// Eight code points behind the window are read as well.
[[nodiscard]] WRAPPING_FUNCTION AVX2_FUNCTION inline Progress decodeWindow(const char32_t* text,
                                                                           char32_t* const decoded) noexcept {
  const __m256i low = wide::narrowed32<wide::Nearest::kSignedByte>(text);
  const __m256i high = wide::narrowed32<wide::Nearest::kSignedByte>(text + 32);
  const std::uint64_t semicolons = wide::placesOf(';', low, high);
  std::uint64_t ampersands = wide::placesOf('&', low, high);
  char32_t* out = decoded;
  unsigned run = 0;  // the first code point that isn't written yet
  unsigned stop = kWindow;
  while (ampersands != 0) {
    const auto start = static_cast<unsigned>(std::countr_zero(ampersands));
    if (start >= kStarts) {
      stop = start;
      break;
    }
    ampersands &= ampersands - 1;
    const auto length = static_cast<unsigned>(std::countr_zero(semicolons >> (start + 1)));
    if (length - 1 >= entities::kLongestName) continue;
    const entities::PackedName eight = wide::narrowed8<wide::Nearest::kSignedByte>(text + start + 1);
    const std::uint32_t character = characterFor({eight & (~entities::PackedName{0} >> (64 - 8 * length)), length});
    if (character == 0) continue;
    copyRun(text + run, start - run, out);
    out += start - run;
    *out++ = character;
    run = start + length + 2;
    ampersands &= ~std::uint64_t{1} << (run - 1);
  }
  copyRun(text + run, stop - run, out);
  out += stop - run;
  return {stop, static_cast<std::size_t>(out - decoded)};
}

}  // namespace

AVX2_FUNCTION bool entity_decoder::avx2::mayHaveReferences(Utf32View text) noexcept {
  const char32_t* at = text.data();
  const char32_t* const end = at + text.size();
  for (; end - at >= 4 * kStep; at += 4 * kStep) {
    const __m256i found =
        _mm256_or_si256(_mm256_or_si256(isAmpersand(load(at)), isAmpersand(load(at + kStep))),
                        _mm256_or_si256(isAmpersand(load(at + 2 * kStep)), isAmpersand(load(at + 3 * kStep))));
    if (_mm256_testz_si256(found, found) == 0) return true;
  }
  for (; end - at >= kStep; at += kStep) {
    const __m256i found = isAmpersand(load(at));
    if (_mm256_testz_si256(found, found) == 0) return true;
  }
  return std::find(at, end, U'&') != end;
}

AVX2_FUNCTION std::size_t entity_decoder::avx2::decode(Utf32View text, std::span<char32_t> decoded) noexcept {
  const char32_t* at = text.data();
  const char32_t* const end = at + text.size();
  char32_t* out = decoded.data();
  // Never more is written than was read, so that storing whole vectors stays inside.
  while (end - at >= std::ptrdiff_t{kWindow} + kStep) {
    const Progress progress = decodeWindow(at, out);
    at += progress.read;
    out += progress.written;
  }
  while (at != end) {
    if (end - at >= kStep && _mm256_movemask_epi8(isAmpersand(load(at))) == 0) {
      copyRun(at, kStep, out);
      at += kStep;
      out += kStep;
      continue;
    }
    while (at != end && *at != '&') *out++ = *at++;
    if (at == end) break;
    const ReferenceName name = entity_decoder::readName(at + 1, end);
    const std::uint32_t character = characterFor(name);
    *out++ = character != 0 ? character : U'&';
    at += character != 0 ? std::min<std::ptrdiff_t>(name.length + 2, end - at) : 1;
  }
  return static_cast<std::size_t>(out - decoded.data());
}
#endif  // WIDE_AVX2
