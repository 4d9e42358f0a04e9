/// The methods of the single-byte character sets.
#include "codecs/charsets.h"
#include "codecs/methods.h"
#include "host/build_string.h"
#include "host/rb_data.h"
#include "host/rb_text.h"
#include "memory/work_buffer.h"

namespace {

REALstringStruct* EncodingTo(REALstringStruct* s, const CharacterSet& set) noexcept {
  rbText input(s);
  const Utf16View text = input.utf16();
  const std::int64_t unitCount = std::ssize(text);
  if (unitCount < charsets::kMinEncodedUnits) return nullptr;
  const WorkBuffer bytes(charsets::encodedBound(unitCount), charsets::encodingReserve(unitCount));
  if (!bytes) return nullptr;
  const std::size_t size = charsets::encode(text, set, bytes.bytes());
  return REALBuildUnicodeString(bytes.data(), static_cast<std::int64_t>(size), kEncodingNone);
}

REALstringStruct* DecodingTo(REALstringStruct* s, const CharacterSet& set) noexcept {
  const rbData input(s);
  const std::int64_t byteCount = std::ssize(input.bytes());
  const WorkBuffer text(charsets::decodedSize(byteCount), charsets::decodingReserve(byteCount));
  if (!text) return nullptr;
  charsets::decode(input.bytes(), set, text.units<char16_t>());
  return REALBuildUnicodeString(text.data(), text.size(), kEncodingUTF16);
}

}  // namespace

REALstringStruct* EncodingToISO8859(REALstringStruct* s) noexcept { return EncodingTo(s, kISO8859); }

REALstringStruct* DecodingToISO8859(REALstringStruct* s) noexcept { return DecodingTo(s, kISO8859); }

REALstringStruct* EncodingToCP1252(REALstringStruct* s) noexcept { return EncodingTo(s, kCP1252); }

REALstringStruct* DecodingToCP1252(REALstringStruct* s) noexcept { return DecodingTo(s, kCP1252); }
