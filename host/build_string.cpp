#include "host/build_string.h"

#include "host/references.h"
#include "host/utf.h"
#include "host/versions.h"
#include "memory/limits.h"
#include "memory/work_buffer.h"
#include "wide/ascii_scan.h"

namespace {

/// Hands a string to the host for conversion and drops it.
REALstringStruct* convertedToUTF8(StringReference string) noexcept {
  return REALConvertString(string.get(), kEncodingUTF8);
}

REALstringStruct* buildUTF32ThroughUTF16(const void* buffer, std::int64_t length) noexcept {
  const Utf32View codePoints{static_cast<const char32_t*>(buffer), static_cast<std::size_t>(length) / sizeof(char32_t)};
  const WorkBuffer work(utf::utf16Bound(std::ssize(codePoints)));
  if (!work) return nullptr;
  const std::span<char16_t> units = work.units<char16_t>();
  const std::size_t unitCount = utf::toUtf16(codePoints, units);
  return REALBuildUnicodeStringUTF16(units.data(), static_cast<std::int64_t>(unitCount * sizeof(char16_t)));
}

REALstringStruct* buildUTF32(const void* buffer, std::int64_t length) noexcept {
  if (!hostIsAtLeast(kVersionModules)) return buildUTF32ThroughUTF16(buffer, length);
  const auto byteLength = static_cast<HostInteger>(length);
  return convertedToUTF8(StringReference::steal(REALBuildStringWithEncoding(buffer, byteLength, kEncodingUTF32)));
}

REALstringStruct* buildMarked(const void* buffer, std::int64_t length, TextEncoding encoding) noexcept {
  REALstringStruct* const string = originalREALBuildString(buffer, static_cast<HostInteger>(length));
  if (string != nullptr) REALSetStringEncoding(string, encoding);
  return string;
}

/// True for the encodings whose 7-bit text is marked US-ASCII instead.
constexpr bool yieldsToASCII(TextEncoding encoding) noexcept {
  return encoding == kEncodingMacRoman || encoding == kEncodingWindowsLatin1 || encoding == kEncodingNone;
}

REALstringStruct* build(const void* buffer, std::int64_t length, TextEncoding encoding) noexcept {
  if (encoding == kEncodingUTF16) return REALBuildUnicodeStringUTF16(buffer, length);
  if (encoding == kEncodingUTF32) return buildUTF32(buffer, length);
  if (yieldsToASCII(encoding) &&
      ascii::isAscii({static_cast<const std::uint8_t*>(buffer), static_cast<std::size_t>(length)})) {
    encoding = kEncodingASCII;
  }
  return buildMarked(buffer, length, encoding);
}

}  // namespace

REALstringStruct* REALBuildUnicodeString(const void* buffer, std::int64_t length, TextEncoding encoding) noexcept {
  if (buffer == nullptr || length <= 0 || length > kMaxSize) return nullptr;
  return build(buffer, length, encoding);
}

REALstringStruct* REALBuildUnicodeStringUTF16(const void* buffer, std::int64_t length) noexcept {
  const HostInteger byteLength = static_cast<std::int32_t>(length);
  if (hostIsAtLeast(kVersionStringData)) {
    return convertedToUTF8(StringReference::steal(REALBuildStringWithEncoding(buffer, byteLength, kEncodingUTF16)));
  }
  StringReference string = StringReference::steal(originalREALBuildString(buffer, byteLength));
  if (!string) return nullptr;
  REALSetStringEncoding(string.get(), kEncodingUTF16);
  return convertedToUTF8(std::move(string));
}
