/// AND, OR and XOR of bytes with a mask that repeats.
#pragma once

#include <cstddef>
#include <cstdint>

#include "memory/byte_view.h"
#include "wide/cpu.h"

namespace bitwise {

enum class Operation : std::uint8_t {
  kAnd,
  kOr,
  kXor,
  kXorPosition,  ///< XOR with the mask and with the low 8 bits of the byte's own position
};

/// The size that limits bind on: the result and the room that whole words need at its end.
[[nodiscard]] constexpr std::int64_t describedSize(std::int64_t byteCount) noexcept { return byteCount + 5; }

/// Combines each byte of `data` with a byte of `mask`, which starts over whenever it ends.
/// @param mask    not empty; what lies beyond the length of the data plays no part
/// @param offset  where in the mask the first byte's partner is; reduced modulo the length of the mask into range,
///                negative ones too
/// @param result  as long as `data`; may not overlap the operands
void combine(Operation operation, ByteView data, ByteView mask, std::int32_t offset, ByteSpan result) noexcept;

/// A mask laid out for wide reading. Where the data is longer than the period, the bytes go on repeating for
/// `kSlack` bytes beyond the period; otherwise there are at least as many as the data has.
struct RepeatingMask {
  static constexpr std::size_t kSlack = 128;

  const std::uint8_t* bytes;
  std::size_t period;
};

/// What a kernel is for one operation.
using OperationKernel = void(ByteView data, RepeatingMask mask, std::size_t position, std::uint8_t* result) noexcept;

namespace scalar {
/// The kernel proper: as `bitwise::combine`, from the first byte of the mask on.
/// @param position  the position of the first byte of `data`, for `Operation::kXorPosition`
void combine(Operation operation, ByteView data, RepeatingMask mask, std::size_t position,
             std::uint8_t* result) noexcept;
}  // namespace scalar

#ifdef WIDE_AVX2
namespace avx2 {
/// The twin of `scalar::combine` for CPUs with AVX2.
void combine(Operation operation, ByteView data, RepeatingMask mask, std::size_t position,
             std::uint8_t* result) noexcept;

/// Data and masks of at most so many bytes, whose repetition a vector holds.
inline constexpr std::size_t kBrief = 32;
inline constexpr std::size_t kBriefMask = 16;

/// Writes a brief mask, beginning at `start`, over and over to the 32 bytes from `to` on.
void repeatBrief(ByteView mask, std::size_t start, std::uint8_t* to) noexcept;
}  // namespace avx2
#endif
#ifdef WIDE_NEON
namespace neon {
/// The twin of `scalar::combine` for CPUs with NEON.
void combine(Operation operation, ByteView data, RepeatingMask mask, std::size_t position,
             std::uint8_t* result) noexcept;
}  // namespace neon
#endif

}  // namespace bitwise
