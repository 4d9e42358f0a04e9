/// Text in every way a host may hand it out: each form through a method that shows it.
#include "tests/support/methods.h"

using namespace testing;

namespace {

/// The UTF-8, UTF-16 and UTF-32 forms of a text, each seen through the result of a method.
void checkForms(const Options& options, const Argument& text, std::string_view utf8Form, std::string_view latin1Form) {
  Session session(options);
  checkText(call(session, "RemoveHTMLTagsZQV", {text}), utf8Form, kEncodingUTF8);
  checkText(call(session, "EncodingToISO8859ZQV", {text}), latin1Form, kEncodingNone);
  checkText(call(session, "DecodingFromHTMLZQV", {text}), utf8Form, kEncodingUTF8);
}

}  // namespace

TEST_CASE("terminated or not, marked, byte-swapped, at odd addresses: the same text on every host") {
  for (const double version : kVersions) {
    for (unsigned bits = 0; bits < 32; ++bits) {
      const Options options{.version = version,
                            .terminated = (bits & 1) == 0,
                            .byteOrderMark = (bits & 2) != 0,
                            .swapped = (bits & 4) != 0,
                            .oddStorage = (bits & 8) != 0,
                            .checking = (bits & 16) != 0};
      // Units in the other byte order can only be told by their mark.
      if (options.swapped && !options.byteOrderMark) continue;
      CAPTURE(version);
      CAPTURE(bits);
      checkForms(options, utf8("naïve"), "naïve", "na\xEFve");
      checkForms(options, utf16(u"naïve"), "naïve", "na\xEFve");
      checkForms(options, utf32(U"naïve"), "naïve", "na\xEFve");
      checkForms(options, marked("na\xEFve", kEncodingWindowsLatin1), "naïve", "na\xEFve");
    }
  }
}

TEST_CASE("text without an encoding is ASCII, or Mac Roman where it has a byte of 0x80 or above") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    checkText(call(session, "DecodingFromHexZQV", {raw("4869")}), "Hi", kEncodingASCII);
    checkText(call(session, "RemoveHTMLTagsZQV", {raw("Hi!")}), "Hi!", kEncodingUTF8);
    checkText(call(session, "EncodingToISO8859ZQV", {raw("Hi!")}), "Hi!", kEncodingASCII);
    checkText(call(session, "DecodingFromHTMLZQV", {raw("Hi!")}), "Hi!", kEncodingUTF8);
    checkText(call(session, "RemoveHTMLTagsZQV", {raw("\xA5")}), "\u2022", kEncodingUTF8);
    checkText(call(session, "DecodingFromHTMLZQV", {raw("\xA5")}), "\u2022", kEncodingUTF8);
  }
}

TEST_CASE("byte-order marks at the start of the text itself") {
  struct Case {
    std::string name;
    std::u16string units;
    std::string_view text;
  };
  const Case cases[] = {
      {"a mark is taken off", u"\uFEFFabc", "abc"},
      {"a reversed one swaps the text", {0xFFFE, 0x6100, 0x6200, 0x6300}, "abc"},
      {"U+FFFE right after a mark is taken off too", {0xFEFF, 0xFFFE, 'a', 'b', 'c'}, "abc"},
      {"a mark and nothing else", u"\uFEFF", ""},
      {"fewer than three units are left", u"\uFEFFab", ""},
  };
  for (const Case& c : cases) {
    CAPTURE(c.name);
    for (const double version : {2011.04, 2015.02, 2023.1}) {
      const Outcome outcome = call({.version = version}, "EncodingToISO8859ZQV", {utf16(c.units)});
      CHECK(outcome.text().bytes == c.text);
    }
  }
}

TEST_CASE("where the host refuses UTF-32, it is decoded from UTF-16") {
  struct Case {
    std::u16string units;
    std::string_view text;
  };
  const Case cases[] = {
      {{0xD83D, 0xDE00}, "\U0001F600"},
      {{0xD800, 0x41, 0x42}, "B"},
      {{0xFEFF, 'x'}, "x"},
  };
  for (const double version : kVersions) {
    CAPTURE(version);
    const char* const refused = version >= 2013.0 ? "PluginGetStringData" : "REALConvertString";
    for (const Case& c : cases) {
      const Options options{.version = version, .failing = {{refused, 1}}};
      checkText(call(options, "DecodingFromHTMLZQV", {utf16(c.units)}), c.text, kEncodingUTF8);
    }
    checkNull(call({.version = version, .failing = {{refused, 0}, {"REALConvertString", 0}}}, "DecodingFromHTMLZQV",
                   {utf8("x")}));
  }
}

TEST_CASE("null, empty and long strings") {
  const std::string longText(2'000'000, 'x');
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    for (const Text& empty : {nullText(), utf8(""), raw(""), utf16(u"")}) {
      checkNull(call(session, "DecodingFromHTMLZQV", {empty}));
      checkNull(call(session, "EncodingToHexZQV", {empty}));
      checkNull(call(session, "DecodingFromHexZQV", {empty}));
      checkNull(call(session, "EncodingToISO8859ZQV", {empty}));
      checkNull(call(session, "RemoveHTMLTagsZQV", {empty}));
    }
    checkText(call(session, "DecodingFromHTMLZQV", {utf8(longText)}), longText, kEncodingUTF8);
    checkText(call(session, "ConcatBinaryStringsZQV", {utf8(longText), nullText(), raw("\xFF")}), longText + "\xFF",
              kEncodingNone);
  }
}

TEST_CASE("a form handed out without data counts as refused, and its record is given back") {
  const Outcome outcome = call(Options{.recordsWithoutData = true}, "RemoveHTMLTagsZQV", {utf8("x")});
  checkNull(outcome);
}

TEST_CASE("a subject that can't be read is empty, and not the argument itself") {
  for (const char* service : {"StringGetCString", "LenB"}) {
    checkNull(call({.without = {service}}, "EncodeEmailSubjectZQV", {raw("A\xE9")}));
    checkNull(call({.version = 2012.0, .without = {service}}, "EncodeEmailSubjectZQV", {raw("A")}));
  }
  CHECK(call(Options{}, "EncodeEmailSubjectZQV", {raw("")}).sameAsArgument == 0);
}

TEST_CASE("a result of 7-bit bytes without an encoding is marked ASCII") {
  for (const double version : kVersions) {
    Session session(Options{.version = version});
    checkText(call(session, "ConcatBinaryStringsZQV", {raw("\x7F"), nullText()}), "\x7F", kEncodingASCII);
    checkText(call(session, "ConcatBinaryStringsZQV", {raw("\x7F"), raw("\x80")}), "\x7F\x80", kEncodingNone);
  }
}
