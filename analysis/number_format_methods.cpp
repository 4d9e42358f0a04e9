/// The methods for numbers.
#include "analysis/methods.h"
#include "analysis/number_format.h"
#include "host/build_string.h"

namespace {

REALstringStruct* build(const number_format::Text& text, std::size_t length) noexcept {
  return REALBuildUnicodeString(text.data(), static_cast<std::int64_t>(length), kEncodingASCII);
}

}  // namespace

REALstringStruct* StrZQV(double d) noexcept {
  number_format::Text text;
  return build(text, number_format::writeFixed(d, text));
}

REALstringStruct* ScientificStrZQV(double d, std::int32_t digits) noexcept {
  number_format::Text text;
  return build(text, number_format::writeScientific(d, digits, text));
}
