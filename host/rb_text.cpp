#include "host/rb_text.h"

#include <cstring>
#include <limits>

#include "host/build_string.h"
#include "host/utf.h"
#include "host/versions.h"
#include "wide/ascii_scan.h"

namespace {

/// Room that a terminated copy has beyond its units.
constexpr std::int64_t kTerminatorSize = 4;

/// A text without an encoding is re-read as Mac Roman only below this many bytes.
constexpr std::size_t kMaxMacRomanSize = 0x7FFF'FFFC;

char16_t byteSwapped(char16_t unit) noexcept { return __builtin_bswap16(unit); }
char32_t byteSwapped(char32_t unit) noexcept { return __builtin_bswap32(unit); }

constexpr char32_t kByteOrderMark = 0xFEFF;
constexpr char32_t kNotACharacter = 0xFFFE;

template <typename Unit>
void makeEmpty(TextForm<Unit>& form, bool had) noexcept {
  form.data = TextForm<Unit>::kEmptyBuffer;
  form.length = 0;
  form.had = had;
}

template <typename Unit>
std::int64_t terminatedSize(std::int64_t unitCount) noexcept {
  return unitCount * static_cast<std::int64_t>(sizeof(Unit)) + kTerminatorSize;
}

template <typename Unit>
bool isAligned(const void* data) noexcept {
  return reinterpret_cast<std::uintptr_t>(data) % alignof(Unit) == 0;
}

/// A text that is not terminated counts as copied, and has the limit of the copy. Kernels go by the length, so below
/// that limit nobody needs the terminator and nothing is copied.
template <typename Unit>
bool exceedsCopy(const Unit* data, std::int32_t length) noexcept {
  // Where pointers have 32 bits, the longest text leaves no room for a terminator in any object.
  constexpr std::int64_t kMaxUnits =
      std::numeric_limits<std::ptrdiff_t>::max() / static_cast<std::int64_t>(sizeof(Unit));
  return terminatedSize<Unit>(length) > kMaxSize && (length >= kMaxUnits || data[length] != 0);
}

template <typename Unit>
void copyUnaligned(TextForm<Unit>& form, const void* data, std::int32_t length) noexcept {
  form.copy = allocateUnits<Unit>(terminatedSize<Unit>(length));
  if (form.copy == nullptr) return makeEmpty(form, false);
  std::memcpy(form.copy.get(), data, static_cast<std::size_t>(length) * sizeof(Unit));
  form.data = form.copy.get();
  form.length = length;
}

template <typename Unit>
void swapBytes(TextForm<Unit>& form) noexcept {
  HeapUnits<Unit> swapped = allocateUnits<Unit>(terminatedSize<Unit>(form.length));
  if (swapped == nullptr) return makeEmpty(form, false);
  for (std::int32_t i = 0; i < form.length; ++i) swapped[static_cast<std::size_t>(i)] = byteSwapped(form.data[i]);
  form.copy = std::move(swapped);
  form.data = form.copy.get();
}

template <typename Unit>
void dropFirst(TextForm<Unit>& form) noexcept {
  ++form.data;
  --form.length;
}

/// Brings the text into the processor's byte order and takes the byte-order mark off, and a U+FFFE right after it.
template <typename Unit>
void normaliseByteOrder(TextForm<Unit>& form) noexcept {
  if (form.length > 0 && byteSwapped(form.data[0]) == kByteOrderMark) swapBytes(form);
  if (form.length == 0 || form.data[0] != kByteOrderMark) return;
  dropFirst(form);
  if (form.length > 0 && form.data[0] == kNotACharacter) dropFirst(form);
}

template <typename Unit>
std::span<const Unit> viewOf(const TextForm<Unit>& form) noexcept {
  return {form.data, static_cast<std::size_t>(form.length)};
}

/// The bytes of a 7-bit source, which are its ASCII and its UTF-8 text.
StringContents plainContents(REALstringStruct* source) noexcept {
  return hostIsAtLeast(kVersionStringData) ? contentsFromServices(source) : contentsFromStructure(source);
}

void takePlain(TextForm<std::uint8_t>& form, REALstringStruct* source) noexcept {
  const StringContents contents = plainContents(source);
  form.had = contents.reachable();
  if (contents.bytes().empty()) return;
  form.data = contents.data;
  form.length = contents.length;
}

template <typename Unit>
void giveBack(TextForm<Unit>& form) noexcept {
  if (form.recordFilled) REALDisposeStringData(&form.record);
}

}  // namespace

rbText::rbText(REALstringStruct* source) noexcept {
  if (source == nullptr) return;
  if (REALGetStringEncoding(source) != kEncodingNone) {
    source_ = StringReference::borrow(source);
  } else {
    openWithoutEncoding(source);
  }
  ascii_.length = utf8_.length = utf16_.length = utf32_.length = -1;
}

rbText::~rbText() {
  source_ = {};
  ascii_.converted = {};
  utf8_.converted = {};
  utf16_.converted = {};
  utf32_.converted = {};
  giveBack(ascii_);
  giveBack(utf8_);
  giveBack(utf16_);
  giveBack(utf32_);
}

ByteView rbText::ascii() noexcept {
  if (ascii_.length < 0) ConvertASCII();
  return viewOf(ascii_);
}

ByteView rbText::utf8() noexcept {
  if (utf8_.length < 0) ConvertUTF8();
  return viewOf(utf8_);
}

Utf16View rbText::utf16() noexcept {
  if (utf16_.length < 0) ConvertUTF16();
  return viewOf(utf16_);
}

Utf32View rbText::utf32() noexcept {
  if (utf32_.length < 0) ConvertUTF32();
  return viewOf(utf32_);
}

void rbText::openWithoutEncoding(REALstringStruct* source) noexcept {
  const rbData data(source);
  const ByteView bytes = data.bytes();
  if (ascii::isAscii(bytes)) {
    source_ = StringReference::borrow(source);
    plainASCII_ = true;
    return;
  }
  if (bytes.size() < kMaxMacRomanSize) {
    source_ = StringReference::steal(REALBuildUnicodeString(bytes.data(), std::ssize(bytes), kEncodingMacRoman));
  }
}

/// Replaces a 7-bit source without an encoding by a marked copy, which the host can convert.
void rbText::markPlainSource() noexcept {
  const ByteView bytes = contentsOf(source_.get()).bytes();
  source_ = StringReference::steal(REALBuildUnicodeString(bytes.data(), std::ssize(bytes), kEncodingMacRoman));
  plainASCII_ = false;
}

/// Asks the host for the text in another encoding.
/// @param stringDataVersion  the host version from which "PluginGetStringData" is used
template <typename Unit>
void rbText::fetch(TextForm<Unit>& form, TextEncoding encoding, double stringDataVersion) noexcept {
  if (hostIsAtLeast(stringDataVersion)) {
    form.recordFilled = REALGetStringData(source_.get(), encoding, &form.record) != 0;
    if (form.recordFilled) {
      return take(form, {static_cast<const std::uint8_t*>(form.record.data), form.record.length});
    }
  } else {
    form.converted = StringReference::steal(REALConvertString(source_.get(), encoding));
    if (form.converted) return take(form, contentsFromStructure(form.converted.get()));
  }
  form.had = false;
  failed_ = true;
}

/// Makes the form of what the host handed out, in place where it can be used there.
template <typename Unit>
void rbText::take(TextForm<Unit>& form, StringContents contents) noexcept {
  const std::int32_t length = contents.length / static_cast<std::int32_t>(sizeof(Unit));
  if (contents.data == nullptr && contents.length > 0) {
    form.had = false;
    failed_ = true;
  } else if (contents.data == nullptr || length < 1) {
    return;
  } else if (!isAligned<Unit>(contents.data)) {
    copyUnaligned(form, contents.data, length);
  } else {
    form.data = reinterpret_cast<const Unit*>(contents.data);
    form.length = length;
    if (exceedsCopy(form.data, length)) makeEmpty(form, false);
  }
}

void rbText::ConvertASCII() noexcept {
  ascii_.length = 0;
  if (!source_) return;
  if (plainASCII_) return takePlain(ascii_, source_.get());
  fetch(ascii_, kEncodingASCII, kVersionStringData);
}

void rbText::ConvertUTF8() noexcept {
  utf8_.length = 0;
  utf8_.had = static_cast<bool>(source_);
  if (!source_) return;
  if (plainASCII_) return takePlain(utf8_, source_.get());
  const auto isReadable = [](TextEncoding encoding) { return encoding == kEncodingASCII || encoding == kEncodingUTF8; };
  if (!hostIsAtLeast(kVersionHostUTF8) && isReadable(source_.get()->encoding)) {
    return take(utf8_, contentsFromStructure(source_.get()));
  }
  fetch(utf8_, kEncodingUTF8, kVersionStringData);
}

void rbText::ConvertUTF16() noexcept {
  utf16_.length = 0;
  if (!source_) return;
  if (plainASCII_) markPlainSource();
  if (!source_) return;
  fetch(utf16_, kEncodingUTF16, kVersionStringData);
  normaliseByteOrder(utf16_);
}

void rbText::ConvertUTF32() noexcept {
  utf32_.length = 0;
  if (!source_) return;
  if (plainASCII_) markPlainSource();
  if (!source_) return;
  fetch(utf32_, kEncodingUTF32, kVersionModules);
  if (failed_) decodeUtf16Form();
  normaliseByteOrder(utf32_);
}

/// Makes the UTF-32 form of the UTF-16 form, where the host refused it.
void rbText::decodeUtf16Form() noexcept {
  const Utf16View units = utf16();
  makeEmpty(utf32_, false);
  if (units.empty()) return;
  HeapUnits<char32_t> codePoints = allocateUnits<char32_t>(utf::utf32Bound(std::ssize(units)));
  if (codePoints == nullptr) return;
  const std::size_t length = utf::toUtf32(units, {codePoints.get(), units.size() + 1});
  utf32_.copy = std::move(codePoints);
  utf32_.data = utf32_.copy.get();
  utf32_.length = static_cast<std::int32_t>(length);
  utf32_.had = true;
}
