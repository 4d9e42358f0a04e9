/// The byte-order marks, and the test for each.
#include "analysis/unicode_markers.h"

#include <cstring>

namespace {

alignas(4) constexpr std::uint8_t kUTF8Mark[] = {0xEF, 0xBB, 0xBF};
alignas(4) constexpr std::uint8_t kUTF16BigEndianMark[] = {0xFE, 0xFF};
alignas(4) constexpr std::uint8_t kUTF16LittleEndianMark[] = {0xFF, 0xFE};
alignas(4) constexpr std::uint8_t kUTF32BigEndianMark[] = {0x00, 0x00, 0xFE, 0xFF};
alignas(4) constexpr std::uint8_t kUTF32LittleEndianMark[] = {0xFF, 0xFE, 0x00, 0x00};

template <std::size_t kSize>
bool startsWith(ByteView bytes, const std::uint8_t (&mark)[kSize]) noexcept {
  return bytes.size() >= kSize && std::memcmp(bytes.data(), mark, kSize) == 0;
}

}  // namespace

ByteView unicode_markers::mark(std::int32_t kind) noexcept {
  switch (kind) {
    case kUTF8:
      return kUTF8Mark;
    case kUTF16:
    case kUTF16LittleEndian:
      return kUTF16LittleEndianMark;
    case kUTF16BigEndian:
      return kUTF16BigEndianMark;
    case kUTF32:
    case kUTF32LittleEndian:
      return kUTF32LittleEndianMark;
    case kUTF32BigEndian:
      return kUTF32BigEndianMark;
    default:
      return {};
  }
}

unicode_markers::Kind unicode_markers::detect(ByteView bytes) noexcept {
  if (startsWith(bytes, kUTF32LittleEndianMark)) return kUTF32LittleEndian;  // before UTF-16, whose mark it begins with
  if (startsWith(bytes, kUTF32BigEndianMark)) return kUTF32BigEndian;
  if (startsWith(bytes, kUTF8Mark)) return kUTF8;
  if (startsWith(bytes, kUTF16LittleEndianMark)) return kUTF16LittleEndian;
  if (startsWith(bytes, kUTF16BigEndianMark)) return kUTF16BigEndian;
  return kNone;
}
