/// The public functions for transfer encodings.
#include <cstring>
#include <span>

#include "codecs/charsets.h"
#include "codecs/email_subject.h"
#include "codecs/hex.h"
#include "codecs/mysql.h"
#include "codecs/quoted_printable.h"
#include "codecs/url.h"
#include "codecs/yenc.h"
#include "stringkernels/results.h"
#include "stringkernels/stringkernels.h"
#include "stringkernels/utf8.h"

namespace stringkernels {
namespace {

const CharacterSet& setOf(Charset charset) noexcept { return charset == Charset::kWindows1252 ? kCP1252 : kISO8859; }

}  // namespace

std::string encodeHex(std::string_view bytes) {
  const ByteView input = bytesOf(bytes);
  return written(hex::encodedSize(std::ssize(input)), [&](ByteSpan out) {
    hex::encode(input, out);
    return out.size();
  });
}

std::string decodeHex(std::string_view digits) {
  const ByteView input = bytesOf(digits);
  return written(hex::decodedSize(std::ssize(input)), [&](ByteSpan out) {
    hex::decode(input, out);
    return out.size();
  });
}

std::string encodeUrl(std::string_view bytes, Plus plus) {
  const ByteView input = bytesOf(bytes);
  const url::Options options(plus == Plus::kSpace ? 1 : plus == Plus::kEscaped ? 2 : 0);
  return written(url::encodedBound(std::ssize(input)), [&](ByteSpan out) { return url::encode(input, options, out); });
}

std::string decodeUrl(std::string_view text, Plus plus) {
  const ByteView input = bytesOf(text);
  const url::Options options(plus == Plus::kSpace ? 1 : 0);
  return written(url::decodedBound(std::ssize(input)), [&](ByteSpan out) { return url::decode(input, options, out); });
}

std::string encodeQuotedPrintable(std::string_view bytes, std::int32_t lineLimit) {
  OutputBuffer text;
  check(quoted_printable::encode(bytesOf(bytes), lineLimit, text), text);
  return stringOf(text.bytes());
}

std::string decodeQuotedPrintable(std::string_view text) {
  const ByteView input = bytesOf(text);
  return written(std::ssize(input), [&](ByteSpan out) { return quoted_printable::decode(input, out); });
}

std::string encodeEmailSubject(std::string_view text) {
  const ByteView input = bytesOf(text);
  if (email_subject::findNotPlain(input) == input.size()) return std::string(text);
  OutputBuffer word;
  check(email_subject::encode(input, word), word);
  return stringOf(word.bytes());
}

std::string decodeYenc(std::string_view data) {
  const ByteView input = bytesOf(data);
  return written(std::ssize(input), [&](ByteSpan out) { return yenc::decode(input, out); });
}

std::string decodeMySql(std::string_view text) {
  const ByteView input = bytesOf(text);
  return written(mysql::decodedBound(std::ssize(input)), [&](ByteSpan out) { return mysql::decode(input, out); });
}

std::string encodeCharset(std::string_view text, Charset charset) {
  (void)bytesOf(text);
  const std::u16string units = toUtf16(text);
  return written(charsets::encodedBound(std::ssize(units)),
                 [&](ByteSpan out) { return charsets::encode(units, setOf(charset), out); });
}

std::string decodeCharset(std::string_view bytes, Charset charset) {
  const ByteView input = bytesOf(bytes);
  std::u16string units(input.size(), u'\0');
  charsets::decode(input, setOf(charset), units);
  // Both sets have characters of the first plane only, so that units are code points.
  return toUtf8(std::u32string(units.begin(), units.end()));
}

}  // namespace stringkernels
