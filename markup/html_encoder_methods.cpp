#include "host/build_output.h"
#include "host/exceptions.h"
#include "host/rb_text.h"
#include "host/references.h"
#include "markup/encoding_need.h"
#include "markup/html_encoder.h"
#include "markup/markup_characters.h"
#include "markup/methods.h"

REALstringStruct* EncodingToHTML(REALstringStruct* s, std::int32_t options) noexcept {
  return raisingOnFailure([&]() -> REALstringStruct* {
    rbText input(s);
    const Utf32View text = input.utf32();
    if (text.empty()) return nullptr;
    if (!encoding_need::forHtml(text)) return sameString(s);
    const html::Markup markup = (options & 1) != 0 ? html::Markup::kKeep : html::Markup::kEscape;
    OutputBuffer ascii;
    const bool complete = html::encode(markup::withoutByteOrderMark(text), markup, ascii);
    return buildOutput(complete, ascii, kEncodingASCII);
  });
}
