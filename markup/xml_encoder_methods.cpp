#include "host/build_output.h"
#include "host/exceptions.h"
#include "host/rb_text.h"
#include "host/references.h"
#include "markup/encoding_need.h"
#include "markup/markup_characters.h"
#include "markup/methods.h"
#include "markup/xml_encoder.h"

REALstringStruct* EncodingToXML(REALstringStruct* s, std::int32_t options) noexcept {
  return raisingOnFailure([&]() -> REALstringStruct* {
    rbText input(s);
    const Utf32View text = input.utf32();
    if (text.empty()) return nullptr;
    if (!encoding_need::forXml(text)) return sameString(s);
    const xml::Apostrophe apostrophe = (options & 1) != 0 ? xml::Apostrophe::kName : xml::Apostrophe::kNumber;
    OutputBuffer codePoints;
    const bool complete = xml::encode(markup::withoutByteOrderMark(text), apostrophe, codePoints);
    return buildOutput(complete, codePoints, kEncodingUTF32);
  });
}
