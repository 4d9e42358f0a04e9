/// Tag removal, as a program of the host calls it.
#include "tests/reference/markup.h"
#include "tests/support/methods.h"
#include "tests/support/random_bytes.h"

using namespace testing;

namespace {

constexpr char kRemove[] = "RemoveHTMLTagsZQV";
constexpr char kReplace[] = "RemoveHTMLTagsWithZQV";
using Names = std::vector<std::string>;

TEST_CASE("RemoveHTMLTagsZQV on every host") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    const auto leaves = [&](const Text& text, std::string_view expected) {
      checkText(call(session, kRemove, {text}), expected, kEncodingUTF8);
      checkText(call(session, kReplace, {text, nullText()}), expected, kEncodingUTF8);
      checkText(call(session, kReplace, {text, utf8("")}), expected, kEncodingUTF8);
    };
    leaves(utf8("<b>bold</b> text"), "bold text");
    leaves(ascii("a<b<c>d>e"), "ae");
    leaves(ascii("a>b<c"), "ac");
    leaves(ascii("x < y"), "x ");
    leaves(utf16(u"café <i>ok</i>"), "café ok");
    leaves(marked("\xE9<i>", kEncodingWindowsLatin1), "é");
    leaves(raw("\xA5<i>"), "•");  // no encoding: Mac Roman
    leaves(utf8("a\0b"sv), "ab");
    leaves(utf8("no tags"), "no tags");
    for (const char* text : {"<br/>", "<", "<>", "<a>><"}) checkNull(call(session, kRemove, {utf8(text)}));
  }
}

TEST_CASE("RemoveHTMLTagsWithZQV on every host") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    const auto becomes = [&](const Text& text, const Text& replacement, std::string_view expected) {
      checkText(call(session, kReplace, {text, replacement}), expected, kEncodingUTF8);
    };
    becomes(utf8("a<br>b"), utf8("x"), "axxb");
    becomes(utf8("a<br>b"), utf16(u"–é"), "a–é–éb");
    becomes(utf8("<é>"), ascii("x"), "xx");  // once a byte, not once a character
    becomes(utf8("a<br>b"), utf8("<>"), "a<><>b");
    becomes(utf8("a<br>b"), utf8("x\0y"sv), "axxb");
    becomes(utf8("a<br>b"), utf8("\0y"sv), "ab");
    becomes(utf8("a<\0b>c"sv), ascii("-"), "a-c");
    becomes(utf8("<p>"), ascii("ab"), "ab");
    checkNull(call(session, kReplace, {utf8("<>"), ascii("ab")}));
  }
}

TEST_CASE("tag removal: nothing in, nothing out, nothing raised") {
  Session session;
  CHECK(call(session, kReplace, {nullText(), utf8("x")}).services.empty());
  checkNull(call(session, kReplace, {nullText(), utf8("x")}));
  checkNull(call(session, kRemove, {nullText()}));
  checkNull(call(session, kRemove, {utf8("")}));
  checkNull(call(session, kReplace, {utf8(""), utf8("x")}));
  checkNull(call({.without = {"PluginGetStringData"}}, kRemove, {utf8("a")}));
  checkNull(call({.without = {"REALBuildString"}}, kRemove, {utf8("a")}));
  // A replacement that can't be had is none.
  checkText(call({.failing = {{"PluginGetStringData", 1}}}, kReplace, {utf8("a<b>"), utf8("x")}), "a", kEncodingUTF8);
}

TEST_CASE("tag removal opens the replacement, then the text") {
  Session session;
  const Names services = call(session, kReplace, {ascii("a<b>"), utf16(u"x")}).services;
  const Names expected = {"REALGetStringEncoding", "REALLockString",       "PluginGetStringData",
                          "REALGetStringEncoding", "REALLockString",       "PluginGetStringData",
                          "REALBuildString",       "REALSetStringEncoding"};
  REQUIRE(services.size() == expected.size() + 4);
  CHECK(Names(services.begin(), services.end() - 4) == expected);
  // One text refused, and it is the replacement.
  Session refusing({.failing = {{"PluginGetStringData", 2}}});
  checkNull(call(refusing, kReplace, {ascii("a<b>"), utf16(u"x")}));
}

TEST_CASE("tag removal agrees with the naive twin at the edge of the host's memory") {
  RandomBytes random(2026);
  for (const double version : {2011.04, 2015.02, 2023.1}) {
    Session session(Options{.version = version, .checking = true});
    for (std::size_t length = 0; length <= 130; length += 5) {
      const std::string text = "a" + random.of("abcdefg<>\0 "sv, length);
      CAPTURE(length);
      CHECK(call(session, kRemove, {ascii(text)}).text() == utf8(reference::withoutTags(text)));
      CHECK(call(session, kReplace, {ascii(text), ascii("--")}).text() == utf8(reference::withoutTags(text, "--")));
    }
  }
}

TEST_CASE("tag removal: results too long are empty and cost nothing") {
  Session session;
  const Text text = ascii("<" + std::string(70'000, 'x'));
  checkNull(call(session, kReplace, {text, ascii(std::string(70'000, 'y'))}));
}

TEST_CASE("tag removal: a million brackets") {
  Session session;
  const std::string many(1'000'000, '<');
  checkNull(call(session, kRemove, {ascii(many)}));
  checkText(call(session, kRemove, {ascii(many + std::string(1'000'000, '>') + "x")}), "x", kEncodingUTF8);
}

}  // namespace
