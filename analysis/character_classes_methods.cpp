/// The methods for byte ranges.
#include "analysis/character_classes.h"
#include "analysis/methods.h"
#include "host/build_string.h"
#include "host/rb_data.h"
#include "memory/work_buffer.h"
#include "wide/ascii_scan.h"

namespace {

/// What callers ask of every byte, by the numbers they use.
enum Mode : std::int32_t { kSevenBit = 0, kPrintable = 1, kFromSpaceOn = 2 };

bool fits(ByteView bytes, std::int32_t mode) noexcept {
  switch (mode) {
    case kSevenBit:
      return ascii::isAscii(bytes);
    case kPrintable:
      return character_classes::arePrintable(bytes);
    case kFromSpaceOn:
      return character_classes::areFromSpaceOn(bytes);
    default:
      return false;
  }
}

}  // namespace

HostBoolean IsASCIIString1(REALstringStruct* s) noexcept { return IsASCIIString2(s, kSevenBit); }

HostBoolean IsASCIIString2(REALstringStruct* s, std::int32_t mode) noexcept {
  const rbData input(s);
  return !input.bytes().empty() && fits(input.bytes(), mode) ? 1 : 0;
}

REALstringStruct* ReplaceNonPrintableCharactersZQV(REALstringStruct* s, std::int32_t replacevalue) noexcept {
  const rbData input(s);
  const WorkBuffer text(std::ssize(input.bytes()));
  if (!text) return nullptr;
  character_classes::replaceNonPrintable(input.bytes(), static_cast<std::uint8_t>(replacevalue), text.bytes());
  return REALBuildUnicodeString(text.data(), text.size(), kEncodingASCII);
}
