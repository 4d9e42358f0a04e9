/// Text that is marked or refused.
#include "tests/support/methods.h"

using namespace testing;

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

TEST_CASE("a form handed out without data counts as refused, and its record is given back") {
  const Outcome outcome = call(Options{.recordsWithoutData = true}, "RemoveHTMLTagsZQV", {utf8("x")});
  checkNull(outcome);
}
