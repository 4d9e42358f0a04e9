/// The methods for byte-order marks.
#include "analysis/methods.h"
#include "analysis/unicode_markers.h"
#include "host/build_string.h"
#include "host/rb_data.h"

namespace {

TextEncoding encodingOf(std::int32_t kind) noexcept {
  if (kind == unicode_markers::kUTF8) return kEncodingUTF8;
  return kind <= unicode_markers::kUTF16LittleEndian ? kEncodingUTF16 : kEncodingUTF32;
}

}  // namespace

HostInteger DetectUnicodeMarkers(REALstringStruct* s) noexcept {
  const rbData input(s);
  return unicode_markers::detect(input.bytes());
}

REALstringStruct* GetUnicodeMarkers(std::int32_t kind) noexcept {
  const ByteView mark = unicode_markers::mark(kind);
  return REALBuildUnicodeString(mark.data(), std::ssize(mark), encodingOf(kind));
}
