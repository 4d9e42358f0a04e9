/// The methods of percent-encoding.
#include "codecs/methods.h"
#include "codecs/url.h"
#include "host/build_string.h"
#include "host/rb_data.h"
#include "memory/work_buffer.h"

REALstringStruct* EncodingToURL1(REALstringStruct* s) noexcept { return EncodingToURL2(s, 0); }

REALstringStruct* EncodingToURL2(REALstringStruct* s, std::int32_t options) noexcept {
  const rbData input(s);
  const std::int64_t byteCount = std::ssize(input.bytes());
  const WorkBuffer text(url::encodedBound(byteCount), url::encodingReserve(byteCount));
  if (!text) return nullptr;
  const std::size_t size = url::encode(input.bytes(), url::Options(options), text.bytes());
  return REALBuildUnicodeString(text.data(), static_cast<std::int64_t>(size), kEncodingASCII);
}

REALstringStruct* DecodingToURL1(REALstringStruct* s) noexcept { return DecodingToURL2(s, 0); }

REALstringStruct* DecodingToURL2(REALstringStruct* s, std::int32_t options) noexcept {
  const rbData input(s);
  const WorkBuffer bytes(url::decodedBound(std::ssize(input.bytes())));
  if (!bytes) return nullptr;
  const std::size_t size = url::decode(input.bytes(), url::Options(options), bytes.bytes());
  return REALBuildUnicodeString(bytes.data(), static_cast<std::int64_t>(size), kEncodingNone);
}
