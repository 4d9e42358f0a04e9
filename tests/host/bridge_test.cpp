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
    const char* name;
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

/// Something for every parameter: enough text that no work area on the stack is used.
std::vector<Argument> someArguments(const Method& method) {
  std::vector<Argument> arguments;
  for (const Parameter& parameter : method.declaration.parameters) {
    switch (parameter.type) {
      case Type::kString:
        arguments.emplace_back(utf8("é<&" + std::string(3000, 'e')));
        break;
      case Type::kMemoryBlock:
        arguments.emplace_back(block(std::string(3000, 'e')));
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

}  // namespace

TEST_CASE("whichever service is missing, every method returns and keeps its accounts") {
  const Names countingReferences = {"REALLockString", "REALUnlockString", "REALLockObject", "REALUnlockObject",
                                    "PluginDisposeStringData"};
  for (const double version : {2011.04, 2012.0, 2015.02, 2023.1}) {
    for (const char* service : kServiceNames) {
      if (std::string_view(service).starts_with("PluginRegister")) continue;
      if (service == "REALGetRBVersion"sv) continue;  // such a host would have the structure of the oldest ones
      CAPTURE(version);
      CAPTURE(service);
      Session session({.version = version, .without = {service}});
      const bool counts = std::ranges::find(countingReferences, service) == countingReferences.end();
      for (const Method& method : session.methods()) {
        const Outcome outcome = session.call(method, someArguments(method));
        if (counts) CHECK_MESSAGE(outcome.balanced, method.declaration.name << ": " << violationsOf(outcome));
      }
    }
  }
}

TEST_CASE("whichever service fails at each of its first calls, every method returns and keeps its accounts") {
  for (const double version : {2011.04, 2015.02, 2023.1}) {
    for (const char* service :
         {"StringGetCString", "LenB", "PluginGetStringData", "REALConvertString", "REALBuildStringWithEncoding",
          "REALBuildString", "memoryBlockGetPtr", "newMemoryBlock"}) {
      for (int nth = 1; nth <= 3; ++nth) {
        CAPTURE(version);
        CAPTURE(service);
        CAPTURE(nth);
        Session listed({.version = version});
        for (const Method& method : listed.methods()) {
          Session session({.version = version, .failing = {{service, nth}}});
          const Outcome outcome = session.call(
              session.method(method.declaration.name, method.declaration.parameters.size()), someArguments(method));
          CHECK_MESSAGE(outcome.balanced, method.declaration.name << ": " << violationsOf(outcome));
        }
      }
    }
  }
}
