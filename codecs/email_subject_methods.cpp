#include <cstring>

#include "codecs/email_subject.h"
#include "codecs/methods.h"
#include "host/build_string.h"
#include "host/rb_text.h"

REALstringStruct* EncodeEmailSubjectZQV(REALstringStruct* s) noexcept {
  if (s == nullptr) return nullptr;
  rbText input(s);
  const ByteView text = input.utf8();
  if (!input.hadUtf8()) return nullptr;
  const ByteView notPlain = text.subspan(email_subject::findNotPlain(text));
  if (notPlain.empty() || notPlain.front() == 0) return sameString(s);  // a zero byte ends the text

  const void* const zero = std::memchr(notPlain.data(), 0, notPlain.size());
  const ByteView subject = zero == nullptr ? text : ByteView(text.data(), static_cast<const std::uint8_t*>(zero));
  OutputBuffer word;
  if (!email_subject::encode(subject, word)) return nullptr;
  return REALBuildUnicodeString(word.data(), word.size(), kEncodingASCII);
}
