#include "host/rb_data.h"
#include "host/services.h"
#include "markup/methods.h"
#include "markup/readiness.h"

namespace {

/// True for the encodings whose bytes below 0x80 are ASCII. A string without one is no text that could be ready.
[[nodiscard]] bool extendsASCII(TextEncoding encoding) noexcept {
  return encoding == kEncodingMacRoman || encoding == kEncodingWindowsLatin1 || encoding == kEncodingASCII ||
         encoding == kEncodingUTF8;
}

}  // namespace

HostBoolean StringIsHTMLready(REALstringStruct* s) noexcept {
  if (s == nullptr) return 1;
  if (!extendsASCII(REALGetStringEncoding(s))) return 0;
  return readiness::isReady(rbData(s).bytes()) ? 1 : 0;
}

HostBoolean StringIsXMLready(REALstringStruct* s) noexcept { return StringIsHTMLready(s); }
