/// Text without its tags. A tag is what lies between a "<" and the matching ">"; nothing else of HTML is known here.
#pragma once

#include <cstddef>
#include <cstdint>

#include "memory/byte_view.h"
#include "wide/cpu.h"

/// Each "<" raises the depth by 1 and each ">" lowers it, below 0 too; a byte lies in a tag where the depth isn't 0.
/// The brackets themselves and zero bytes never come through.
namespace tags {

/// Writes the bytes outside tags and returns how many that makes.
/// @param kept  at least as long as the text; may not overlap it. All of it may be touched.
[[nodiscard]] std::size_t remove(ByteView text, ByteSpan kept) noexcept;

/// How many bytes `replace` writes: the replacement counts once for every byte in a tag.
[[nodiscard]] std::int64_t replacedSize(ByteView text, ByteView replacement) noexcept;

/// Writes the bytes outside tags, and the replacement for each byte inside one.
/// @param replaced  exactly `replacedSize` long; may overlap neither input
void replace(ByteView text, ByteView replacement, ByteSpan replaced) noexcept;

/// The part of a replacement that is written: all before its first zero byte.
[[nodiscard]] ByteView untilZeroByte(ByteView replacement) noexcept;

namespace scalar {
[[nodiscard]] std::size_t remove(ByteView text, ByteSpan kept) noexcept;
[[nodiscard]] std::int64_t replacedSize(ByteView text, ByteView replacement) noexcept;
}  // namespace scalar

#ifdef WIDE_AVX2
namespace avx2 {
[[nodiscard]] std::size_t remove(ByteView text, ByteSpan kept) noexcept;
[[nodiscard]] std::int64_t replacedSize(ByteView text, ByteView replacement) noexcept;
}  // namespace avx2
#endif
#ifdef WIDE_NEON
namespace neon {
[[nodiscard]] std::size_t remove(ByteView text, ByteSpan kept) noexcept;
[[nodiscard]] std::int64_t replacedSize(ByteView text, ByteView replacement) noexcept;
}  // namespace neon
#endif

}  // namespace tags
