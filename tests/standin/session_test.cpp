#include "standin/session.h"

#include "tests/support/methods.h"

using namespace testing;

TEST_CASE("a session calls the plugin on hosts of every version") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session({.version = version});
    CHECK(session.methods().size() >= 7);
    checkText(call(session, "NativeStringZQV", {utf16(u"é")}), "é", kEncodingUTF8);
    checkText(call(session, "UnicodeStringZQV", {utf8("é")}), utf16(u"é").bytes, kEncodingUTF16);
    checkText(call(session, "ConcatBinaryStringsZQV", {raw("\xFF"), utf8("x")}), "\xFFx", kEncodingNone);
  }
}
