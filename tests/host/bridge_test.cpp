/// Strings in and out on every generation of hosts, with the services each of them is asked for.
#include <algorithm>

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
  struct Case {
    std::string name;
    double version;
    const char* method;
    std::vector<Argument> arguments;
    std::string_view services;
  };
  const Case cases[] = {
      {"bytes from services",
       2016.0,
       "EncodingToHexZQV",
       {utf8("a")},
       "LenB StringGetCString REALLockString REALBuildString REALSetStringEncoding REALUnlockString"},
      {"bytes from the structure",
       2015.03,
       "EncodingToHexZQV",
       {utf8("a")},
       "REALLockString REALBuildString REALSetStringEncoding REALUnlockString"},
      {"text by record, UTF-32 built by the host",
       2013.0,
       "DecodingFromHTMLZQV",
       {utf8("é")},
       "REALGetStringEncoding REALLockString PluginGetStringData REALBuildStringWithEncoding REALConvertString "
       "REALUnlockString REALUnlockString PluginDisposeStringData"},
      {"UTF-32 by conversion, built as UTF-16",
       2012.0,
       "DecodingFromHTMLZQV",
       {utf8("é")},
       "REALGetStringEncoding REALLockString REALConvertString REALBuildStringWithEncoding REALConvertString "
       "REALUnlockString REALUnlockString REALUnlockString"},
      {"everything by conversion and marking",
       2011.04,
       "DecodingFromHTMLZQV",
       {utf8("é")},
       "REALGetStringEncoding REALLockString REALConvertString REALBuildString REALSetStringEncoding REALConvertString "
       "REALUnlockString REALUnlockString REALUnlockString"},
      {"the very argument back",
       2016.0,
       "EncodeEmailSubjectZQV",
       {utf8("a")},
       "REALGetStringEncoding REALLockString PluginGetStringData REALLockString REALUnlockString "
       "PluginDisposeStringData"},
      {"UTF-8 read in place",
       2015.02,
       "EncodeEmailSubjectZQV",
       {utf8("a")},
       "REALGetStringEncoding REALLockString REALLockString REALUnlockString"},
      {"7-bit bytes without an encoding are text already",
       2023.1,
       "DecodingFromHexZQV",
       {raw("41")},
       "REALGetStringEncoding LenB StringGetCString REALLockString REALLockString REALUnlockString LenB "
       "StringGetCString REALBuildString REALSetStringEncoding REALUnlockString"},
      {"other bytes become Mac Roman",
       2023.1,
       "DecodingFromHTMLZQV",
       {raw("\xA5")},
       "REALGetStringEncoding LenB StringGetCString REALLockString REALBuildString REALSetStringEncoding "
       "REALUnlockString PluginGetStringData REALBuildStringWithEncoding REALConvertString REALUnlockString "
       "REALUnlockString PluginDisposeStringData"},
      {"a memory block",
       2023.1,
       "_yDecodeMemoryZQV",
       {block("r")},
       "REALLockObject memoryBlockGetSize memoryBlockGetPtr newMemoryBlock memoryBlockGetPtr REALUnlockObject"},
      {"a conversion outright", 2023.1, "UnicodeStringZQV", {nullText()}, "REALConvertString"},
      {"null asks nothing", 2023.1, "EncodingToHexZQV", {nullText()}, ""},
  };
  for (const Case& c : cases) {
    CAPTURE(c.name);
    Session session(Options{.version = c.version});
    call(session, c.method, c.arguments);  // from here on LenB is known
    CHECK(joined(call(session, c.method, c.arguments).services) == c.services);
  }
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

namespace {

/// Something for every parameter; the first text is too long for any work area on the stack.
std::vector<Argument> someArguments(const Method& method) {
  std::vector<Argument> arguments;
  for (const Parameter& parameter : method.declaration.parameters) {
    const std::string text(arguments.empty() ? 1100 : 3, 'e');
    switch (parameter.type) {
      case Type::kString:
        arguments.emplace_back(utf8("é<&" + text));
        break;
      case Type::kMemoryBlock:
        arguments.emplace_back(block(text));
        break;
      case Type::kInteger:
        arguments.emplace_back(std::int32_t{2});
        break;
      case Type::kDouble:
        arguments.emplace_back(1.5);
        break;
      case Type::kBoolean:
        arguments.emplace_back(true);
        break;
    }
  }
  return arguments;
}

/// Calls every method once. What the plugin did wrong, a line for each finding.
std::string violationsOfAllMethods(const Options& options) {
  Session session(options);
  std::string lines;
  for (const Method& method : session.methods()) {
    const Outcome outcome = session.call(method, someArguments(method));
    if (!outcome.balanced) lines += method.declaration.name + ": " + violationsOf(outcome);
  }
  return lines;
}

}  // namespace

TEST_CASE("whichever service is missing or fails, every method returns and keeps its accounts") {
  for (const double version : {2011.04, 2012.0, 2015.02, 2023.1}) {
    for (const std::string service : kServiceNames) {
      if (service.starts_with("PluginRegister")) continue;
      CAPTURE(version);
      CAPTURE(service);
      const std::string missing = violationsOfAllMethods({.version = version, .without = {service}});
      const std::string failing = violationsOfAllMethods({.version = version, .failing = {{service, 0}}});
      // Without the services that count them, references can't balance.
      if (service.find("ock") != std::string::npos || service == "PluginDisposeStringData") continue;
      CHECK(missing == "");
      CHECK(failing == "");
    }
  }
}
