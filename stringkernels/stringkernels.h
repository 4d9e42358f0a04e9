/// Fast string functions for C++ programs: markup, transfer encodings, bit operations, text distances, counting, hex
/// dumps, number formats. Needs C++17 and nothing but the standard library. For C programs there is a part of its own
/// at the end; they are linked with the C++ runtime.
///
/// What all functions have in common:
/// - Bytes and text come as `std::string_view` and go as `std::string`; both may hold zero bytes. Text is UTF-8, and
///   where it is ill-formed, U+FFFD stands for each maximal subpart (The Unicode Standard, section 3.9), except in
///   `removeTags`, `replaceTags`, `encodeEmailSubject` and `replaceSqlBooleans`: they work on bytes, and those that are
///   ill-formed are bytes like others. No function looks at the locale.
/// - Sizes are in bytes. Neither an input nor a result may have more than 2,147,483,647 bytes: `std::length_error`.
///   Without memory: `std::bad_alloc`. Nothing else is thrown, whatever the input holds: what is malformed has a
///   result, which is described with each function. An empty input has an empty result where nothing else is said.
/// - They keep no state, so that any number of threads may call them at once. They take time in proportion to the
///   sizes of input and result, the edit distances aside, and use AVX2 and AVX-512 where the processor has them.
#pragma once

#ifdef __cplusplus

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace stringkernels {

// ---- Markup ---------------------------------------------------------------------------------------------------------

/// What becomes of the quotation mark, ampersand, apostrophe, less-than and greater-than sign.
enum class Markup { kEscape, kKeep };

/// How an apostrophe is written: "&#39;" is understood in HTML too, "&apos;" is what XML calls it.
enum class Apostrophe { kNumber, kName };

/// Any text as ASCII that can stand in an HTML document (HTML 4.01, sections 5.3 and 24): named references where there
/// are any, decimal ones for all else above U+007F: "&#128;" for U+0080, which browsers read as the euro sign. Dropped
/// are control characters below U+0020 other than TAB, LF and CR, and one leading byte-order mark, U+FEFF or U+FFFE.
///
///     encodeHtml("<b>5 €</b>") == "&lt;b&gt;5 &euro;&lt;/b&gt;"
[[nodiscard]] std::string encodeHtml(std::string_view text, Markup markup = Markup::kEscape);

/// The text, in UTF-8, with references for its markup characters (XML 1.0, section 4.6). Drops what `encodeHtml` drops.
[[nodiscard]] std::string encodeXml(std::string_view text, Apostrophe apostrophe = Apostrophe::kNumber);

/// The text with the characters that its references stand for: "&", a name of at most eight characters, and ";", which
/// may be missing at the end of the text. Names are the 253 of HTML 4.01 and XML, and "#" or "#x" before a number from
/// 1 up. What follows its digits counts for nothing: "&#65abc;" is "A", and so is "&#65&lt;". Numbers that are no code
/// points become U+FFFD. Everything else stays: single ampersands, unknown names, "&#0;", "&#-5;", "&#X41;", and
/// "&#99999999;", which has nine characters. One leading U+FEFF or U+FFFE is dropped.
[[nodiscard]] std::string decodeReferences(std::string_view text);

/// Whether bytes can stand in HTML and XML as they are: all ASCII, no NUL, no markup character. True for no bytes.
[[nodiscard]] bool isMarkupReady(std::string_view bytes);

/// The bytes outside tags. Each "<" raises the depth by 1 and each ">" lowers it, below 0 too; a byte lies in a tag
/// where the depth isn't 0. Zero bytes are dropped. This is no sanitizer: what comes out may still hold script.
[[nodiscard]] std::string removeTags(std::string_view text);

/// As `removeTags`, with the replacement, up to its first zero byte, for each byte in a tag but the brackets.
[[nodiscard]] std::string replaceTags(std::string_view text, std::string_view replacement);

// ---- Transfer encodings ---------------------------------------------------------------------------------------------

/// Two upper-case digits a byte (RFC 4648, section 8).
[[nodiscard]] std::string encodeHex(std::string_view bytes);

/// A byte for each pair of characters. Digits of either case count; what is no digit counts as 0 and is not skipped; a
/// last character without a partner yields nothing.
[[nodiscard]] std::string decodeHex(std::string_view digits);

/// What "+" is in percent-encoded text.
enum class Plus {
  kItself,   ///< a plus, written as it is; a space is "%20"
  kSpace,    ///< a space, as in HTML forms; a plus is "%2B"
  kEscaped,  ///< a plus, written as "%2B"; a space is "%20"; in decoding the same as `kItself`
};

/// Percent-encoding (RFC 3986, section 2.1) of all but letters, digits and "!*-.@_". Limited to 715,827,879 bytes,
/// whatever they are.
[[nodiscard]] std::string encodeUrl(std::string_view bytes, Plus plus = Plus::kItself);

/// Undoes percent-encoding. Each "%" takes two characters with it, whatever these are: one that is no digit, or is
/// missing at the end, counts as 0.
[[nodiscard]] std::string decodeUrl(std::string_view text, Plus plus = Plus::kItself);

/// Quoted-printable (RFC 2045, section 6.7). Every line break becomes CR LF.
/// @param lineLimit  two more than the characters that a line holds, not counting the "=" of a soft break; 72 for less
///                   than 2. Where it is 2, or 2 to 4 for an escape, each of them is alone on a line, though longer.
[[nodiscard]] std::string encodeQuotedPrintable(std::string_view bytes, std::int32_t lineLimit = 72);

/// Reads quoted-printable text. Every line break becomes LF; malformed escapes yield nothing.
[[nodiscard]] std::string decodeQuotedPrintable(std::string_view text);

/// A mail header's text: itself where all of it is from 0x20 to 0x7F, else one encoded word (RFC 2047, "Q"), however
/// long that is. Control characters within it stay, line breaks among them: refuse or remove these first.
[[nodiscard]] std::string encodeEmailSubject(std::string_view text);

/// yEnc data between its header and trailer lines (the draft of 2002). CR and LF are data like any other byte; a final
/// "=" is read as if a zero byte followed.
[[nodiscard]] std::string decodeYenc(std::string_view data);

/// The backslash escapes of MySQL's string literals undone. What is no escape stays as it is.
[[nodiscard]] std::string decodeMySql(std::string_view text);

/// Single-byte character sets.
enum class Charset { kLatin1, kWindows1252 };

/// The text's bytes in a set; characters that the set doesn't have yield nothing.
[[nodiscard]] std::string encodeCharset(std::string_view text, Charset charset);

/// The bytes of a set as UTF-8; U+0000 for the five that Windows-1252 leaves undefined.
[[nodiscard]] std::string decodeCharset(std::string_view bytes, Charset charset);

// ---- Bits -----------------------------------------------------------------------------------------------------------

enum class BitOperation {
  kAnd,
  kOr,
  kXor,
  kXorPosition,  ///< XOR with the mask and with the low 8 bits of the byte's own position
};

/// Each byte combined with one of the mask, which starts over whenever it ends; the bytes themselves for an empty mask.
/// @param offset  where in the mask the first byte's partner is, modulo the length of the mask; may be negative
[[nodiscard]] std::string combine(BitOperation operation, std::string_view bytes, std::string_view mask,
                                  std::int32_t offset = 0);

// ---- Analysis -------------------------------------------------------------------------------------------------------

/// The least number of insertions, deletions, substitutions and swaps of adjacent code points that turn one text into
/// the other, no part being edited twice (optimal string alignment). Takes time in proportion to the product of the
/// lengths over 64; `std::length_error` where (length + 1) · (length + 1) · 4 exceeds 2^31 - 1.
[[nodiscard]] std::int64_t editDistance(std::string_view a, std::string_view b);

/// 1 less the Jaro-Winkler similarity: 0 for equal texts, 1 for those that have nothing in common (M. A. Jaro, 1989;
/// W. E. Winkler, 1990).
[[nodiscard]] double jaroWinklerDistance(std::string_view a, std::string_view b);

/// -1, 0 or 1: compares as unsigned bytes; beyond its end the shorter one counts as zero bytes.
[[nodiscard]] int compareBytes(std::string_view a, std::string_view b);

/// How often the pattern occurs, from left to right and without overlaps; 0 for an empty one. Linear in the worst case.
[[nodiscard]] std::int64_t countOccurrences(std::string_view bytes, std::string_view pattern);

/// Whether all bytes are below 0x80. True for no bytes.
[[nodiscard]] bool isAscii(std::string_view bytes);

/// Whether all bytes are from 0x20 to 0x7F. True for no bytes.
[[nodiscard]] bool isPrintableAscii(std::string_view bytes);

/// The bytes, with the replacement in place of those outside 0x20 to 0x7F.
[[nodiscard]] std::string replaceUnprintable(std::string_view bytes, char replacement = '.');

/// How a hex dump is laid out. Every line has the same length: the last one is completed with filler. The strings are
/// the caller's, and have to last until `hexDump` returns.
struct HexDumpLayout {
  std::int32_t groupDigits = 2;     ///< digits in a group; an odd number splits bytes
  std::int32_t lineGroups = 16;     ///< groups in a line
  std::string_view lineStart = {};  ///< before every line
  std::string_view lineEnd = "\n";  ///< after every line
  std::string_view spacer = " ";    ///< between two groups of a line
  std::string_view filler = " ";    ///< repeated in place of missing digits; "0" where it is empty
};

/// The bytes in upper-case digits, in groups and lines; nothing where a group or a line is to have less than 1.
[[nodiscard]] std::string hexDump(std::string_view bytes, const HexDumpLayout& layout = {});

/// TRUE and FALSE as words of their own, in any letter case and outside quotes, replaced by 1 and 0. Around words are
/// bytes below 0x21 or above 0x7F, "(", ")", ",", ";" and the ends of the statement.
[[nodiscard]] std::string replaceSqlBooleans(std::string_view sql);

/// Byte-order marks (The Unicode Standard, section 23.8).
enum class ByteOrderMark {
  kNone = 0,
  kUtf8 = 1,
  kUtf16BigEndian = 3,
  kUtf16LittleEndian = 4,
  kUtf32BigEndian = 6,
  kUtf32LittleEndian = 7,
};

/// The mark that bytes begin with. FF FE 00 00 is that of UTF-32.
[[nodiscard]] ByteOrderMark detectByteOrderMark(std::string_view bytes);

/// A number without an exponent. All digits before the point are written; of the decimals, from the first that isn't 0
/// on, 15 less one for each character before the point that isn't "0", cut off, not rounded. Of zeros at the end one is
/// kept: "1.0", "0.10", "1234.50"; "inf", "-inf" and "nan" are what they are.
///
/// Beware of large numbers: with 15 or more such characters the point goes too, and then the zeros that go are those of
/// the number, which becomes too small by powers of ten. Both of these hold:
///
///     formatFixed(123456789012345600.0) == "12345678901234560"
///     formatFixed(1234567890123456000.0) == "12345678901234560"
[[nodiscard]] std::string formatFixed(double value);

/// A number as one digit, decimals and an exponent of at least two digits, correctly rounded: "1.25e+03".
/// @param decimals  0 for less; of a text above 498 characters the end is missing
[[nodiscard]] std::string formatScientific(double value, std::int32_t decimals);

}  // namespace stringkernels

#endif  // __cplusplus

// ---- For C ----------------------------------------------------------------------------------------------------------

// NOLINTBEGIN: names as C has them
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/// How a call ended. What is malformed is no failure: it has a result, as described above.
typedef enum stringkernels_status {
  STRINGKERNELS_OK = 0,
  STRINGKERNELS_TOO_LONG = 1,  ///< an input or the result has more than 2,147,483,647 bytes
  STRINGKERNELS_NO_MEMORY = 2,
  STRINGKERNELS_UNKNOWN_TRANSFORMATION = 3,
} stringkernels_status;

/// Bytes that belong to the caller, who gives them back with `stringkernels_free`. A zero byte follows, not counted.
typedef struct stringkernels_bytes {
  char* data;
  size_t size;
} stringkernels_bytes;

/// What becomes of bytes: the functions above, with their usual options where the name tells no others.
typedef enum stringkernels_transformation {
  STRINGKERNELS_ENCODE_HTML,
  STRINGKERNELS_ENCODE_HTML_KEEPING_MARKUP,
  STRINGKERNELS_ENCODE_XML,
  STRINGKERNELS_DECODE_REFERENCES,
  STRINGKERNELS_REMOVE_TAGS,
  STRINGKERNELS_ENCODE_HEX,
  STRINGKERNELS_DECODE_HEX,
  STRINGKERNELS_ENCODE_URL,
  STRINGKERNELS_ENCODE_URL_FORM,  ///< `Plus::kSpace`
  STRINGKERNELS_DECODE_URL,
  STRINGKERNELS_DECODE_URL_FORM,  ///< `Plus::kSpace`
  STRINGKERNELS_ENCODE_QUOTED_PRINTABLE,
  STRINGKERNELS_DECODE_QUOTED_PRINTABLE,
  STRINGKERNELS_ENCODE_EMAIL_SUBJECT,
  STRINGKERNELS_DECODE_YENC,
  STRINGKERNELS_DECODE_MYSQL,
  STRINGKERNELS_ENCODE_LATIN1,
  STRINGKERNELS_DECODE_LATIN1,
  STRINGKERNELS_ENCODE_WINDOWS_1252,
  STRINGKERNELS_DECODE_WINDOWS_1252,
  STRINGKERNELS_REPLACE_UNPRINTABLE,
  STRINGKERNELS_HEX_DUMP,
  STRINGKERNELS_REPLACE_SQL_BOOLEANS,
} stringkernels_transformation;

/// Transforms bytes into new ones. Without success the result is null and empty.
stringkernels_status stringkernels_transform(stringkernels_transformation transformation, const char* data, size_t size,
                                             stringkernels_bytes* result);

/// Gives the bytes of a result back, and leaves it null and empty. Nothing happens to one that is, and to a null
/// pointer.
void stringkernels_free(stringkernels_bytes* bytes);

/// `editDistance`; 0 without success.
stringkernels_status stringkernels_edit_distance(const char* a, size_t a_size, const char* b, size_t b_size,
                                                 int64_t* distance);

/// `jaroWinklerDistance`; 0 without success.
stringkernels_status stringkernels_jaro_winkler_distance(const char* a, size_t a_size, const char* b, size_t b_size,
                                                         double* distance);

/// `countOccurrences`; 0 without success.
stringkernels_status stringkernels_count_occurrences(const char* data, size_t size, const char* pattern,
                                                     size_t pattern_size, int64_t* count);

#ifdef __cplusplus
}
#endif
// NOLINTEND
