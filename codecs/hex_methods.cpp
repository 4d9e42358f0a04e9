/// "EncodingToHexZQV" and "DecodingFromHexZQV".
#include "codecs/hex.h"
#include "codecs/methods.h"
#include "host/build_string.h"
#include "host/rb_data.h"
#include "host/rb_text.h"
#include "memory/work_buffer.h"

REALstringStruct* EncodingToHex(REALstringStruct* s) noexcept {
  const rbData input(s);
  const WorkBuffer digits(hex::encodedSize(std::ssize(input.bytes())));
  if (!digits) return nullptr;  // nothing to encode, too long, or no memory
  hex::encode(input.bytes(), digits.bytes());
  return REALBuildUnicodeString(digits.data(), digits.size(), kEncodingASCII);
}

REALstringStruct* DecodingToHex(REALstringStruct* s) noexcept {
  rbText input(s);
  const ByteView digits = input.ascii();
  const WorkBuffer bytes(hex::decodedSize(std::ssize(digits)));
  if (!bytes) return nullptr;
  hex::decode(digits, bytes.bytes());
  return REALBuildUnicodeString(bytes.data(), bytes.size(), kEncodingNone);
}
