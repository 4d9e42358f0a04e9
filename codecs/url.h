/// Percent-encoding of bytes for URLs (RFC 3986, section 2.1; "+" for a space as HTML forms have it).
#pragma once

#include <cstdint>

#include "memory/byte_view.h"
#include "memory/limits.h"
#include "wide/cpu.h"

namespace url {

/// How a call treats spaces and "+". Only the two lowest bits of the number count.
///
/// | | a space is written as | "+" is written as | "+" is read as |
/// |---|---|---|---|
/// | 0 | %20 | + | + |
/// | 1 | + | %2B | a space |
/// | 2 | %20 | %2B | + |
/// | 3 | %20 | + | a space |
class Options {
 public:
  constexpr explicit Options(std::int32_t number) noexcept : bits_(static_cast<unsigned>(number) & 3) {}

  [[nodiscard]] constexpr unsigned index() const noexcept { return bits_; }
  [[nodiscard]] constexpr bool writesSpaceAsPlus() const noexcept { return bits_ == 1; }
  [[nodiscard]] constexpr bool escapesPlus() const noexcept { return bits_ == 1 || bits_ == 2; }
  [[nodiscard]] constexpr bool readsPlusAsSpace() const noexcept { return (bits_ & 1) != 0; }

 private:
  unsigned bits_;
};

/// What the limit on sizes binds on, whatever the bytes: three characters for each, and ten.
[[nodiscard]] constexpr std::int64_t encodingReserve(std::int64_t byteCount) noexcept { return 3 * byteCount + 10; }

/// Room for encoding.
[[nodiscard]] constexpr std::int64_t encodedBound(std::int64_t byteCount) noexcept {
  return withOverrun(encodingReserve(byteCount));
}

/// Writes letters, digits and "!*-.@_" as they are, and the other bytes as "%" and two upper-case digits.
/// @param text  at least `encodingReserve` long
/// @return the number of characters written
[[nodiscard]] std::size_t encode(ByteView bytes, Options options, ByteSpan text) noexcept;

/// Room for decoding; as many bytes as the text has would do.
[[nodiscard]] constexpr std::int64_t decodedBound(std::int64_t textSize) noexcept { return withOverrun(textSize); }

/// Writes one byte for each "%" and the two characters behind it, whatever these are: one that is no digit counts
/// as 0, and so does one missing at the end. Other bytes are copied.
/// @param bytes  at least as long as `text`, which it may not overlap
/// @return the number of bytes written
[[nodiscard]] std::size_t decode(ByteView text, Options options, ByteSpan bytes) noexcept;

namespace scalar {
[[nodiscard]] std::size_t encode(ByteView bytes, Options options, ByteSpan text) noexcept;
[[nodiscard]] std::size_t decode(ByteView text, Options options, ByteSpan bytes) noexcept;
}  // namespace scalar

#ifdef WIDE_AVX2
namespace avx2 {
[[nodiscard]] std::size_t encode(ByteView bytes, Options options, ByteSpan text) noexcept;
[[nodiscard]] std::size_t decode(ByteView text, Options options, ByteSpan bytes) noexcept;
}  // namespace avx2
#endif
#ifdef WIDE_NEON
namespace neon {
[[nodiscard]] std::size_t encode(ByteView bytes, Options options, ByteSpan text) noexcept;
[[nodiscard]] std::size_t decode(ByteView text, Options options, ByteSpan bytes) noexcept;
}  // namespace neon
#endif

#ifdef WIDE_AVX512
namespace avx512 {
[[nodiscard]] std::size_t encode(ByteView bytes, Options options, ByteSpan text) noexcept;
}
#endif

}  // namespace url
