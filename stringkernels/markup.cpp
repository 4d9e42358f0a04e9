/// The public functions for markup.
#include <span>

#include "markup/entity_decoder.h"
#include "markup/html_encoder.h"
#include "markup/markup_characters.h"
#include "markup/readiness.h"
#include "markup/tag_removal.h"
#include "markup/xml_encoder.h"
#include "stringkernels/results.h"
#include "stringkernels/stringkernels.h"
#include "stringkernels/utf8.h"

namespace stringkernels {
namespace {

/// The code points of a text, behind its byte-order mark.
class CodePoints {
 public:
  explicit CodePoints(std::string_view text) : all_((static_cast<void>(bytesOf(text)), toUtf32(text))) {}

  [[nodiscard]] Utf32View view() const noexcept { return markup::withoutByteOrderMark(all_); }

 private:
  std::u32string all_;
};

}  // namespace

std::string encodeHtml(std::string_view text, Markup markup) {
  OutputBuffer ascii;
  const auto kept = markup == Markup::kKeep ? html::Markup::kKeep : html::Markup::kEscape;
  check(html::encode(CodePoints(text).view(), kept, ascii), ascii);
  return stringOf(ascii.bytes());
}

std::string encodeXml(std::string_view text, Apostrophe apostrophe) {
  OutputBuffer output;
  const auto written = apostrophe == Apostrophe::kName ? xml::Apostrophe::kName : xml::Apostrophe::kNumber;
  check(xml::encode(CodePoints(text).view(), written, output), output);
  return toUtf8({reinterpret_cast<const char32_t*>(output.data()), output.bytes().size() / sizeof(char32_t)});
}

std::string decodeReferences(std::string_view text) {
  const CodePoints input(text);
  std::u32string decoded(input.view().size(), U'\0');
  decoded.resize(entity_decoder::decode(input.view(), decoded));
  return toUtf8(decoded);
}

bool isMarkupReady(std::string_view bytes) { return readiness::isReady(bytesOf(bytes)); }

std::string removeTags(std::string_view text) {
  const ByteView bytes = bytesOf(text);
  return written(std::ssize(bytes), [&](ByteSpan out) { return tags::remove(bytes, out); });
}

std::string replaceTags(std::string_view text, std::string_view replacement) {
  const ByteView bytes = bytesOf(text);
  const ByteView with = tags::untilZeroByte(bytesOf(replacement));
  if (with.empty()) return removeTags(text);
  return written(tags::replacedSize(bytes, with), [&](ByteSpan out) {
    tags::replace(bytes, with, out);
    return out.size();
  });
}

}  // namespace stringkernels
