/// Occurrences of one byte string in another.
#pragma once

#include <cstdint>

#include "memory/byte_view.h"
#include "wide/cpu.h"

namespace counting {

/// Counts the occurrences that a search from left to right meets when it goes on behind each one it finds, so that
/// none overlap: "aa" occurs twice in "aaaa" and once in "aaa". An empty pattern never occurs.
/// Takes time linear in both lengths, whatever they hold, and no memory.
[[nodiscard]] std::int64_t count(ByteView text, ByteView pattern) noexcept;

namespace scalar {
/// The kernel proper.
/// @param pattern  not empty
[[nodiscard]] std::int64_t count(ByteView text, ByteView pattern) noexcept;
}  // namespace scalar

#ifdef WIDE_AVX2
namespace avx2 {
/// The twin of `scalar::count` for CPUs with AVX2.
[[nodiscard]] std::int64_t count(ByteView text, ByteView pattern) noexcept;

/// Texts of at most this many bytes are held in registers.
inline constexpr std::size_t kBrief = 64;

/// The same for such texts.
[[nodiscard]] std::int64_t countInBrief(ByteView text, ByteView pattern) noexcept;
}  // namespace avx2
#endif
#ifdef WIDE_NEON
namespace neon {
/// The twin of `scalar::count` for CPUs with NEON.
[[nodiscard]] std::int64_t count(ByteView text, ByteView pattern) noexcept;
}  // namespace neon
#endif

}  // namespace counting
