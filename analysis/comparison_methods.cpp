#include "analysis/comparison.h"
#include "analysis/methods.h"
#include "host/rb_data.h"
#include "host/rb_text.h"
#include "host/services.h"

HostInteger StrCompBytesZQV(REALstringStruct* a, REALstringStruct* b) noexcept {
  const rbData first(a);
  const rbData second(b);
  // The empty string comes before zero bytes.
  if (first.bytes().empty()) return second.bytes().empty() ? 0 : -1;
  if (second.bytes().empty()) return 1;
  return comparison::compareZeroExtended(first.bytes(), second.bytes());
}

HostInteger StrCompCharsZQV(REALstringStruct* a, REALstringStruct* b) noexcept {
  const TextEncoding encoding = REALGetStringEncoding(a);
  if (encoding == REALGetStringEncoding(b)) return StrCompBytesZQV(a, b);
  rbText first(a);
  rbText second(b);
  const ByteView firstBytes = first.utf8();
  return comparison::compareZeroExtended(firstBytes, second.utf8());
}
