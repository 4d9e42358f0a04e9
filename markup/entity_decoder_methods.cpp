#include <new>

#include "host/build_string.h"
#include "host/exceptions.h"
#include "host/rb_text.h"
#include "markup/entity_decoder.h"
#include "markup/markup_characters.h"
#include "markup/methods.h"
#include "memory/work_buffer.h"

namespace {

REALstringStruct* built(const char32_t* text, std::size_t count) noexcept {
  return REALBuildUnicodeString(text, static_cast<std::int64_t>(count * sizeof *text), kEncodingUTF32);
}

}  // namespace

REALstringStruct* DecodingToHTML(REALstringStruct* s) noexcept {
  return raisingOnFailure([&]() -> REALstringStruct* {
    rbText input(s);
    const Utf32View text = markup::withoutByteOrderMark(input.utf32());
    if (text.empty()) return nullptr;
    if (!entity_decoder::mayHaveReferences(text)) return built(text.data(), text.size());
    const WorkBuffer decoded(static_cast<std::int64_t>(text.size_bytes()));
    if (!decoded) throw std::bad_alloc();
    const auto codePoints = decoded.units<char32_t>();
    return built(codePoints.data(), entity_decoder::decode(text, codePoints));
  });
}
