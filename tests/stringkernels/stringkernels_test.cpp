/// The public functions: each with its options and its odd input, as the header describes them.
#include "stringkernels/stringkernels.h"

#include <doctest/doctest.h>
#include <limits>
#include <stdexcept>

#include "stringkernels/utf8.h"

using namespace std::string_literals;

namespace stringkernels {
namespace {

TEST_CASE("options, and what the functions for C leave out") {
  const struct {
    const char* name;
    std::string result;
    std::string expected;
  } kCases[] = {
      {"html", encodeHtml("\uFEFF<b>5 \u20AC\x01'\U0001F600\xFF"), "&lt;b&gt;5 &euro;&#39;&#128512;&#65533;"},
      {"xml, names", encodeXml("'", Apostrophe::kName), "&apos;"},
      {"tags replaced", replaceTags("a<bc>d", "-\0no"s), "a--d"},
      {"tags, no replacement", replaceTags("a<bc>d", "\0"s), "ad"},
      {"url, plus escaped", encodeUrl("a b+", Plus::kEscaped), "a%20b%2B"},
      {"quoted-printable, short lines", encodeQuotedPrintable("abcdef", 4), "ab=\r\ncd=\r\nef"},
      {"plain subject", encodeEmailSubject("plain = ?"), "plain = ?"},
      {"and", combine(BitOperation::kAnd, "\xFF\xFF\xFF", "\x0F\xF0"), "\x0F\xF0\x0F"},
      {"or", combine(BitOperation::kOr, "\x01\x02", "\x10"), "\x11\x12"},
      {"xor", combine(BitOperation::kXor, "AB", " 0", -1), "qb"},
      {"xor with position", combine(BitOperation::kXorPosition, "AAA", " "), "a`c"},
      {"no mask", combine(BitOperation::kAnd, "AB", ""), "AB"},
      {"unprintable", replaceUnprintable("a\n\xFF", '_'), "a__"},
      {"hex dump", hexDump("AB", {.groupDigits = 2, .lineGroups = 3}), "41 42   \n"},
      {"hex dump of no width", hexDump("AB", {.groupDigits = 0}), ""},
      {"fixed", formatFixed(1234.5), "1234.50"},
      {"scientific", formatScientific(1250, 2), "1.25e+03"},
  };
  for (const auto& c : kCases) {
    CAPTURE(c.name);
    CHECK(c.result == c.expected);
  }
}

TEST_CASE("questions") {
  CHECK(isMarkupReady(""));
  CHECK_FALSE(isMarkupReady("a&b"));
  CHECK(isAscii("a\x01"));
  CHECK_FALSE(isAscii("\u00E9"));
  CHECK(isPrintableAscii("a "));
  CHECK_FALSE(isPrintableAscii("a\x01"));
  CHECK(countOccurrences("aaaa", "aa") == 2);
  CHECK(countOccurrences("aaaa", "") == 0);
  CHECK(compareBytes("a", "a\0"s) == 0);
  CHECK(compareBytes("a", "b") == -1);
  CHECK(detectByteOrderMark("\xFF\xFE\0\0"s) == ByteOrderMark::kUtf32LittleEndian);
  CHECK(detectByteOrderMark("a") == ByteOrderMark::kNone);
  CHECK(editDistance("J\u00E9r\u00F4me", "Jeromé") == 3);
  CHECK(editDistance("ab", "ba") == 1);
  CHECK(editDistance("\u00E9\u00E9", "") == 2);
  CHECK(jaroWinklerDistance("MARTHA", "MARHTA") == doctest::Approx(0.0388889));
}

TEST_CASE("what is too long is refused") {
  const std::string text(30000, 'a');
  CHECK_THROWS_AS((void)editDistance(text, text), std::length_error);
  CHECK_THROWS_AS((void)hexDump("A", {.groupDigits = std::numeric_limits<std::int32_t>::max(), .lineGroups = 2}),
                  std::length_error);
  if constexpr (sizeof(void*) == 8) {
    // Never looked at: the size alone is too much.
    const std::string_view endless(text.data(), std::size_t{1} << 31);
    CHECK_THROWS_AS((void)isAscii(endless), std::length_error);
    CHECK_THROWS_AS((void)encodeHtml(endless), std::length_error);
    CHECK_THROWS_AS((void)encodeHex(endless.substr(0, std::size_t{1} << 30)), std::length_error);
  }
}

TEST_CASE("text in, text out, by way of the functions for C, which have statuses for exceptions") {
  const struct {
    stringkernels_transformation transformation;
    std::string bytes;
    std::string expected;
  } kCases[] = {
      {STRINGKERNELS_ENCODE_HTML, "<\u00E9>", "&lt;&eacute;&gt;"},
      {STRINGKERNELS_ENCODE_HTML_KEEPING_MARKUP, "<\u00E9>", "<&eacute;>"},
      {STRINGKERNELS_ENCODE_XML, "<\u00E9 '\x01\U0001F600", "&lt;\u00E9 &#39;\U0001F600"},
      {STRINGKERNELS_DECODE_REFERENCES, "&lt;&eacute;&#128512;&#xD800;&no; & &amp", "<\u00E9\U0001F600\uFFFD&no; & &"},
      {STRINGKERNELS_REMOVE_TAGS, "a<b>c</b\0>d"s, "acd"},
      {STRINGKERNELS_ENCODE_HEX, "\xC3\0"s, "C300"},
      {STRINGKERNELS_DECODE_HEX, "4a4Bzz4", "JK\0"s},
      {STRINGKERNELS_ENCODE_URL, "a b+\u00E9", "a%20b+%C3%A9"},
      {STRINGKERNELS_ENCODE_URL_FORM, " +", "+%2B"},
      {STRINGKERNELS_DECODE_URL, "a+b%4A%4", "a+bJ@"},
      {STRINGKERNELS_DECODE_URL_FORM, "+%20", "  "},
      {STRINGKERNELS_ENCODE_QUOTED_PRINTABLE, "\u00E9=\n", "=C3=A9=3D\r\n"},
      {STRINGKERNELS_DECODE_QUOTED_PRINTABLE, "=C3=A9=\r\n=zz.", "\u00E9."},
      {STRINGKERNELS_ENCODE_EMAIL_SUBJECT, "\u00FC _", "=?utf-8?Q?=C3=BC_=5F?="},
      {STRINGKERNELS_DECODE_YENC, "\x6B=\xAC=", "AB\x96"},
      {STRINGKERNELS_DECODE_MYSQL, R"(a\n\x\')", "a\n\\x'"},
      {STRINGKERNELS_ENCODE_LATIN1, "\u00E9\u20AC\U0001F600!", "\xE9!"},
      {STRINGKERNELS_DECODE_LATIN1, "\xE9\x80", "\u00E9\u0080"},
      {STRINGKERNELS_ENCODE_WINDOWS_1252, "\u00E9\u20AC!", "\xE9\x80!"},
      {STRINGKERNELS_DECODE_WINDOWS_1252, "\x80\x81", "\u20AC\0"s},
      {STRINGKERNELS_REPLACE_UNPRINTABLE, "a\n", "a."},
      {STRINGKERNELS_HEX_DUMP, "A", hexDump("A")},
      {STRINGKERNELS_REPLACE_SQL_BOOLEANS, "a=1 and True or 'false'", "a=1 and 1 or 'false'"},
  };
  stringkernels_bytes result;
  for (const auto& c : kCases) {
    CAPTURE(c.expected);
    CHECK(stringkernels_transform(c.transformation, c.bytes.data(), c.bytes.size(), &result) == STRINGKERNELS_OK);
    CHECK(std::string(result.data, result.size + 1) == c.expected + '\0');
    stringkernels_free(&result);
    CHECK(result.data == nullptr);
    CHECK(stringkernels_transform(c.transformation, nullptr, 0, &result) == STRINGKERNELS_OK);
    CHECK(result.size == 0);
    stringkernels_free(&result);
  }
  // Behind the last one; no more than the bits that the enumeration has.
  CHECK(stringkernels_transform(static_cast<stringkernels_transformation>(31), "a", 1, &result) ==
        STRINGKERNELS_UNKNOWN_TRANSFORMATION);
  CHECK(result.data == nullptr);
  stringkernels_free(nullptr);
  const std::string text(30000, 'a');
  std::int64_t number = -1;
  CHECK(stringkernels_edit_distance("ab", 2, "ba", 2, &number) == STRINGKERNELS_OK);
  CHECK(number == 1);
  CHECK(stringkernels_edit_distance(text.data(), text.size(), text.data(), text.size(), &number) ==
        STRINGKERNELS_TOO_LONG);
  CHECK(number == 0);
  CHECK(stringkernels_count_occurrences("aaaa", 4, "aa", 2, &number) == STRINGKERNELS_OK);
  CHECK(number == 2);
  double distance = -1;
  CHECK(stringkernels_jaro_winkler_distance("a", 1, "b", 1, &distance) == STRINGKERNELS_OK);
  CHECK(distance == 1);
  if constexpr (sizeof(void*) == 8) {
    CHECK(stringkernels_transform(STRINGKERNELS_ENCODE_HEX, text.data(), std::size_t{1} << 30, &result) ==
          STRINGKERNELS_TOO_LONG);
    CHECK(result.data == nullptr);
  }
}

TEST_CASE("UTF-8 is read and written as the standard has it") {
  const auto again = [](std::string_view utf8) { return toUtf8(toUtf32(utf8)); };
  for (char32_t codePoint = 0; codePoint <= 0x110000; ++codePoint) {
    const bool isScalar = codePoint < 0xD800 || (codePoint >= 0xE000 && codePoint <= 0x10FFFF);
    const std::string utf8 = toUtf8({&codePoint, 1});
    const std::u32string back = toUtf32(utf8);
    if (back != std::u32string(1, isScalar ? codePoint : U'\uFFFD')) FAIL_CHECK(std::uint32_t{codePoint});
  }
  CHECK(toUtf16("a\u00E9\U0001F600") == u"a\u00E9\U0001F600");
  const struct {
    std::string bytes;
    int replacements;
  } kIllFormed[] = {
      {"\xFF", 1},         {"\x80\x80", 2},         {"\xC0\xAF", 2},         {"\xE0\x80\xAF", 3}, {"\xED\xA0\x80", 3},
      {"\xF0\x9F\x98", 1}, {"\xF4\x90\x80\x80", 4}, {"\xE1\x80\xE2\xF0", 3}, {"\xC3", 1},
  };
  for (const auto& c : kIllFormed) {
    CAPTURE(c.bytes);
    std::string expected;
    for (int count = 0; count < c.replacements; ++count) expected += "\uFFFD";
    CHECK(again(c.bytes) == expected);
    CHECK(again(c.bytes + "a") == expected + "a");
  }
}

}  // namespace
}  // namespace stringkernels
