/// The public functions for C: those for C++, their exceptions as statuses.
#include <cstdlib>
#include <cstring>
#include <new>
#include <stdexcept>

#include "stringkernels/stringkernels.h"

namespace {

using stringkernels::Charset;
using stringkernels::Plus;

/// An empty view for no bytes, wherever they are said to be.
std::string_view view(const char* data, size_t size) noexcept {
  return size == 0 ? std::string_view() : std::string_view(data, size);
}

std::string transformed(stringkernels_transformation transformation, std::string_view bytes) {
  switch (transformation) {
    case STRINGKERNELS_ENCODE_HTML:
      return stringkernels::encodeHtml(bytes);
    case STRINGKERNELS_ENCODE_HTML_KEEPING_MARKUP:
      return stringkernels::encodeHtml(bytes, stringkernels::Markup::kKeep);
    case STRINGKERNELS_ENCODE_XML:
      return stringkernels::encodeXml(bytes);
    case STRINGKERNELS_DECODE_REFERENCES:
      return stringkernels::decodeReferences(bytes);
    case STRINGKERNELS_REMOVE_TAGS:
      return stringkernels::removeTags(bytes);
    case STRINGKERNELS_ENCODE_HEX:
      return stringkernels::encodeHex(bytes);
    case STRINGKERNELS_DECODE_HEX:
      return stringkernels::decodeHex(bytes);
    case STRINGKERNELS_ENCODE_URL:
      return stringkernels::encodeUrl(bytes);
    case STRINGKERNELS_ENCODE_URL_FORM:
      return stringkernels::encodeUrl(bytes, Plus::kSpace);
    case STRINGKERNELS_DECODE_URL:
      return stringkernels::decodeUrl(bytes);
    case STRINGKERNELS_DECODE_URL_FORM:
      return stringkernels::decodeUrl(bytes, Plus::kSpace);
    case STRINGKERNELS_ENCODE_QUOTED_PRINTABLE:
      return stringkernels::encodeQuotedPrintable(bytes);
    case STRINGKERNELS_DECODE_QUOTED_PRINTABLE:
      return stringkernels::decodeQuotedPrintable(bytes);
    case STRINGKERNELS_ENCODE_EMAIL_SUBJECT:
      return stringkernels::encodeEmailSubject(bytes);
    case STRINGKERNELS_DECODE_YENC:
      return stringkernels::decodeYenc(bytes);
    case STRINGKERNELS_DECODE_MYSQL:
      return stringkernels::decodeMySql(bytes);
    case STRINGKERNELS_ENCODE_LATIN1:
      return stringkernels::encodeCharset(bytes, Charset::kLatin1);
    case STRINGKERNELS_DECODE_LATIN1:
      return stringkernels::decodeCharset(bytes, Charset::kLatin1);
    case STRINGKERNELS_ENCODE_WINDOWS_1252:
      return stringkernels::encodeCharset(bytes, Charset::kWindows1252);
    case STRINGKERNELS_DECODE_WINDOWS_1252:
      return stringkernels::decodeCharset(bytes, Charset::kWindows1252);
    case STRINGKERNELS_REPLACE_UNPRINTABLE:
      return stringkernels::replaceUnprintable(bytes);
    case STRINGKERNELS_HEX_DUMP:
      return stringkernels::hexDump(bytes);
    case STRINGKERNELS_REPLACE_SQL_BOOLEANS:
      return stringkernels::replaceSqlBooleans(bytes);
  }
  throw std::invalid_argument("stringkernels: unknown transformation");
}

/// Runs the body and sets the result, or leaves it at its beginning.
template <typename Result, typename Body>
stringkernels_status guarded(Result& result, Body body) noexcept {
  result = {};
  try {
    result = body();
    return STRINGKERNELS_OK;
  } catch (const std::length_error&) {
    return STRINGKERNELS_TOO_LONG;
  } catch (const std::invalid_argument&) {
    return STRINGKERNELS_UNKNOWN_TRANSFORMATION;
  } catch (const std::bad_alloc&) {
    return STRINGKERNELS_NO_MEMORY;
  }
}

}  // namespace

stringkernels_status stringkernels_transform(stringkernels_transformation transformation, const char* data, size_t size,
                                             stringkernels_bytes* result) {
  return guarded(*result, [&] {
    const std::string text = transformed(transformation, view(data, size));
    stringkernels_bytes bytes = {static_cast<char*>(std::malloc(text.size() + 1)), text.size()};
    if (bytes.data == nullptr) throw std::bad_alloc();
    std::memcpy(bytes.data, text.c_str(), text.size() + 1);
    return bytes;
  });
}

void stringkernels_free(stringkernels_bytes* bytes) {
  if (bytes == nullptr) return;
  std::free(bytes->data);
  *bytes = {};
}

stringkernels_status stringkernels_edit_distance(const char* a, size_t a_size, const char* b, size_t b_size,
                                                 int64_t* distance) {
  return guarded(*distance, [&] { return stringkernels::editDistance(view(a, a_size), view(b, b_size)); });
}

stringkernels_status stringkernels_jaro_winkler_distance(const char* a, size_t a_size, const char* b, size_t b_size,
                                                         double* distance) {
  return guarded(*distance, [&] { return stringkernels::jaroWinklerDistance(view(a, a_size), view(b, b_size)); });
}

stringkernels_status stringkernels_count_occurrences(const char* data, size_t size, const char* pattern,
                                                     size_t pattern_size, int64_t* count) {
  return guarded(*count,
                 [&] { return stringkernels::countOccurrences(view(data, size), view(pattern, pattern_size)); });
}
