/// Hex dumps 16 bytes of text at a time.
#include "analysis/hex_dump.h"

#ifdef WIDE_AVX2

#include <algorithm>
#include <immintrin.h>

#include "analysis/hex_dump_steps.h"
#include "codecs/hex_digits_avx2.h"

namespace {

using hex_dump::Layout;
using hex_dump::Step;
using hex_dump::Steps;

/// A text shorter than that would be repeated too often; one longer isn't worth laying out.
constexpr std::int64_t kMinRepeated = 48;
constexpr std::int64_t kMaxRepeated = Steps::kMaxSize / 2;

/// True while a text has to be added once more: it is short, or ends within a byte.
bool isToBeContinued(const Steps& steps) noexcept { return steps.size() < kMinRepeated || steps.digitCount() % 2 != 0; }

Steps stepsOfLines(const Layout& layout) noexcept {
  Steps steps;
  do {
    steps.addText(layout.lineStart);
    steps.addDigits(layout.groupDigits);
    for (std::int64_t group = 1; group < layout.lineGroups; ++group) {
      steps.addText(layout.spacer);
      steps.addDigits(layout.groupDigits);
    }
    steps.addText(layout.lineEnd);
  } while (isToBeContinued(steps));
  return steps;
}

Steps stepsOfGroups(const Layout& layout) noexcept {
  Steps steps;
  do {
    steps.addDigits(layout.groupDigits);
    steps.addText(layout.spacer);
  } while (isToBeContinued(steps));
  return steps;
}

/// The 16 digits of 8 bytes.
AVX2_FUNCTION inline __m128i digitsOf8(const std::uint8_t* in) noexcept {
  const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(in));
  const __m128i nibbles = _mm_unpacklo_epi8(_mm_srli_epi16(bytes, 4), bytes);
  return avx2::hexDigits(_mm_and_si128(nibbles, _mm_set1_epi8(0x0F)));
}

AVX2_FUNCTION inline __m128i load16(const std::array<std::uint8_t, 16>& bytes) noexcept {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes.data()));
}

AVX2_FUNCTION void repeat(const Steps& steps, std::int64_t times, const std::uint8_t* in, std::uint8_t* out) noexcept {
  const Step* const end = steps.end();
  for (; times > 0; --times) {
    for (const Step* step = steps.begin(); step != end; ++step) {
      const __m128i digits = _mm_shuffle_epi8(digitsOf8(in + step->in), load16(step->digitIndex));
      _mm_storeu_si128(reinterpret_cast<__m128i*>(out + step->out), _mm_or_si128(digits, load16(step->fixed)));
    }
    in += steps.digitCount() / 2;
    out += steps.size();
  }
}

/// How often a text can be written without touching a byte beyond the spans.
std::int64_t fitting(const Steps& steps, ByteView bytes, ByteSpan text) noexcept {
  const std::int64_t bytesSpare = std::ssize(bytes) - steps.bytesTouched();
  const std::int64_t textSpare = std::ssize(text) - steps.textTouched();
  if (bytesSpare < 0 || textSpare < 0) return 0;
  return std::min(bytesSpare / (steps.digitCount() / 2), textSpare / steps.size()) + 1;
}

template <typename Byte>
std::span<Byte> after(std::int64_t count, std::span<Byte> bytes) noexcept {
  return bytes.subspan(static_cast<std::size_t>(count));
}

void writeShortLines(ByteView bytes, const Layout& layout, ByteSpan text) noexcept {
  const Steps steps = stepsOfLines(layout);
  const std::int64_t times = fitting(steps, bytes, text);
  repeat(steps, times, bytes.data(), text.data());
  hex_dump::scalar::write(after(times * steps.digitCount() / 2, bytes), layout, after(times * steps.size(), text));
}

/// Writes one line of whole bytes. The last group, which no spacer follows, and what shares it with fill is left to
/// the scalar form, as the line that it would be.
void writeLongLine(const Steps& steps, ByteView bytes, const Layout& layout, ByteSpan text) noexcept {
  const std::int64_t stepsGroups = steps.digitCount() / layout.groupDigits;
  std::copy(layout.lineStart.begin(), layout.lineStart.end(), text.begin());
  const ByteSpan groups = text.subspan(layout.lineStart.size());
  const std::int64_t times =
      std::min(fitting(steps, bytes.first(bytes.size() - 1), groups), (layout.lineGroups - 1) / stepsGroups);
  repeat(steps, times, bytes.data(), groups.data());
  Layout rest = layout;
  rest.lineStart = {};
  rest.lineGroups -= times * stepsGroups;
  hex_dump::scalar::write(after(times * steps.digitCount() / 2, bytes), rest, after(times * steps.size(), groups));
}

void writeLongLines(ByteView bytes, const Layout& layout, ByteSpan text) noexcept {
  const Steps steps = stepsOfGroups(layout);
  const auto lineBytes = static_cast<std::size_t>(layout.lineDigits() / 2);
  const auto lineText = static_cast<std::size_t>(hex_dump::lineSize(layout));
  for (; bytes.size() > lineBytes; bytes = bytes.subspan(lineBytes), text = text.subspan(lineText)) {
    writeLongLine(steps, bytes.first(lineBytes), layout, text.first(lineText));
  }
  writeLongLine(steps, bytes, layout, text);
}

}  // namespace

void hex_dump::avx2::write(ByteView bytes, const Layout& layout, ByteSpan text) noexcept {
  if (lineSize(layout) <= kMaxRepeated) {
    writeShortLines(bytes, layout, text);
  } else if (layout.groupDigits + std::ssize(layout.spacer) <= kMaxRepeated && layout.lineDigits() % 2 == 0) {
    writeLongLines(bytes, layout, text);
  } else {
    scalar::write(bytes, layout, text);
  }
}

#endif  // WIDE_AVX2
