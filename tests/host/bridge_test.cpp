/// Strings in and out on every generation of hosts, with the services each of them is asked for.
#include "tests/support/methods.h"

using namespace testing;

namespace {

using Names = std::vector<std::string>;

std::string joined(const Names& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : " ") + name;
  return text;
}

}  // namespace

TEST_CASE("the services of one call of each kind, in order") {
  const auto asks = [](double version, const char* method, const std::vector<Argument>& arguments,
                       std::string_view services) {
    Session session(Options{.version = version});
    call(session, method, arguments);  // from here on LenB is known
    CAPTURE(version);
    CAPTURE(method);
    CHECK(joined(call(session, method, arguments).services) == services);
  };
  // Bytes from services, from the structure, of null, and of a memory block.
  asks(2016.0, "EncodingToHexZQV", {utf8("a")},
       "LenB StringGetCString REALLockString REALBuildString REALSetStringEncoding REALUnlockString");
  asks(2015.03, "EncodingToHexZQV", {utf8("a")},
       "REALLockString REALBuildString REALSetStringEncoding REALUnlockString");
  asks(2023.1, "EncodingToHexZQV", {nullText()}, "");
  asks(2023.1, "_yDecodeMemoryZQV", {block("r")},
       "REALLockObject memoryBlockGetSize memoryBlockGetPtr newMemoryBlock memoryBlockGetPtr REALUnlockObject");
  // UTF-32 by record and built by the host, by conversion and built as UTF-16, and by conversion and marking.
  asks(2013.0, "DecodingFromHTMLZQV", {utf8("é")},
       "REALGetStringEncoding REALLockString PluginGetStringData REALBuildStringWithEncoding REALConvertString "
       "REALUnlockString REALUnlockString PluginDisposeStringData");
  asks(2012.0, "DecodingFromHTMLZQV", {utf8("é")},
       "REALGetStringEncoding REALLockString REALConvertString REALBuildStringWithEncoding REALConvertString "
       "REALUnlockString REALUnlockString REALUnlockString");
  asks(2011.04, "DecodingFromHTMLZQV", {utf8("é")},
       "REALGetStringEncoding REALLockString REALConvertString REALBuildString REALSetStringEncoding REALConvertString "
       "REALUnlockString REALUnlockString REALUnlockString");
  // The very argument comes back.
  asks(2016.0, "EncodeEmailSubjectZQV", {utf8("a")},
       "REALGetStringEncoding REALLockString PluginGetStringData REALLockString REALUnlockString "
       "PluginDisposeStringData");
  asks(2015.02, "EncodeEmailSubjectZQV", {utf8("a")},
       "REALGetStringEncoding REALLockString REALLockString REALUnlockString");
  // Without an encoding 7-bit bytes are text already, others become Mac Roman.
  asks(2023.1, "DecodingFromHexZQV", {raw("41")},
       "REALGetStringEncoding LenB StringGetCString REALLockString REALLockString REALUnlockString LenB "
       "StringGetCString REALBuildString REALSetStringEncoding REALUnlockString");
  asks(2023.1, "DecodingFromHTMLZQV", {raw("\xA5")},
       "REALGetStringEncoding LenB StringGetCString REALLockString REALBuildString REALSetStringEncoding "
       "REALUnlockString PluginGetStringData REALBuildStringWithEncoding REALConvertString REALUnlockString "
       "REALUnlockString PluginDisposeStringData");
  // The order of two texts: each opened, then each converted; both encodings first; the replacement before the text.
  const std::string opened = "REALGetStringEncoding REALLockString ";
  const std::string closed = " REALUnlockString PluginDisposeStringData REALUnlockString PluginDisposeStringData";
  asks(2023.1, "LevenshteinDistanceZQV", {utf8("a"), utf8("b")},
       opened + opened + "PluginGetStringData PluginGetStringData" + closed);
  asks(2023.1, "StrCompCharactersZQV", {utf8("a"), utf16(u"a")},
       "REALGetStringEncoding REALGetStringEncoding " + opened + opened + "PluginGetStringData PluginGetStringData" +
           closed);
  asks(2023.1, "RemoveHTMLTagsWithZQV", {utf8("a<b>"), utf16(u"x")},
       opened + "PluginGetStringData " + opened + "PluginGetStringData REALBuildString REALSetStringEncoding" + closed);
  // Nothing is opened for what needs no look.
  asks(2023.1, "StringIsXMLreadyZQV", {raw("abc")}, "REALGetStringEncoding");
  asks(2023.1, "StringIsXMLreadyZQV", {ascii("abc")},
       "REALGetStringEncoding LenB StringGetCString REALLockString REALUnlockString");
  asks(2023.1, "CountOccurancesZQV", {utf8("abc"), nullText()}, "");
  for (const char* method : {"EncodingToHTMLZQV", "EncodingToXMLZQV", "DecodingFromXMLZQV", "SQLReplaceBooleanZQV"}) {
    asks(2023.1, method, {nullText()}, "");
  }
  // Nothing but the result: numbers, and a conversion outright.
  asks(2023.1, "ScientificStrZQV", {1.5, 600}, "REALBuildString REALSetStringEncoding");
  asks(2023.1, "UnicodeStringZQV", {nullText()}, "REALConvertString");
}

TEST_CASE("a service is looked up once when it is there, and again each time while it isn't") {
  Session session(Options{});
  for (int i = 0; i < 3; ++i) call(session, "EncodingToHexZQV", {utf8("a")});
  for (const char* name : {"StringGetCString", "REALLoadGlobalMethod", "REALLockString", "REALBuildString"}) {
    CHECK(session.host().lookups(name) == 1);
  }
  Session poor({.without = {"StringGetCString", "LenB"}});
  for (int i = 0; i < 3; ++i) checkNull(call(poor, "EncodingToHexZQV", {utf8("a")}));
  CHECK(poor.host().lookups("StringGetCString") == 3);
  CHECK(poor.host().lookups("REALLoadGlobalMethod") == 1);
  CHECK(poor.host().lookups("LenB( s as string ) as integer") == 3);
}
