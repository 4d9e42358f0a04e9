#include "codecs/methods.h"
#include "codecs/quoted_printable.h"
#include "host/build_string.h"
#include "host/rb_data.h"
#include "memory/work_buffer.h"

REALstringStruct* EncodingToQuotedPrintable2(REALstringStruct* s, std::int32_t lineLength) noexcept {
  const rbData input(s);
  OutputBuffer text;
  if (!quoted_printable::encode(input.bytes(), lineLength, text)) return nullptr;
  return REALBuildUnicodeString(text.data(), text.size(), kEncodingASCII);
}

REALstringStruct* DecodingToQuotedPrintable(REALstringStruct* s) noexcept {
  const rbData text(s);
  const WorkBuffer bytes(quoted_printable::decodedBound(std::ssize(text.bytes())));
  if (!bytes) return nullptr;
  const std::size_t length = quoted_printable::decode(text.bytes(), bytes.bytes());
  return REALBuildUnicodeString(bytes.data(), static_cast<std::int64_t>(length), kEncodingASCII);
}
