/// What the methods of the codecs do beside decoding and encoding.
#include "tests/support/methods.h"

using namespace testing;

namespace {

constexpr char kSubject[] = "EncodeEmailSubjectZQV";
constexpr char kMemory[] = "_yDecodeMemoryZQV";

constexpr std::string_view kHello = "\x72\x8F\x96\x96\x99";

void checkNil(const Options& options, const Block& data = block(kHello)) {
  const Outcome outcome = call(options, kMemory, {data});
  CHECK_FALSE(outcome.exception.has_value());
  CHECK(outcome.block().nil);
}

void checkNoBlock(const Options& options, std::string_view data, const char* size) {
  const Outcome outcome = call(options, kMemory, {block(data)});
  const std::string message = "Failed to allocate a memoryblock with "s + size + " bytes in size.";
  checkRaised(outcome, "OutOfMemoryException", message);
  CHECK(outcome.block().nil);
}

}  // namespace

TEST_CASE("EncodeEmailSubjectZQV: what is the argument itself, what the null string, and where a text ends") {
  Session session;
  for (const Text& same : {utf8(""), raw(""), utf8("Hello ~\x7F"), utf16(u"Hello"), utf8("plain\0é"sv)}) {
    const Outcome outcome = call(session, kSubject, {same});
    CHECK(outcome.sameAsArgument == 0);
    CHECK(outcome.text() == same);
  }
  checkText(call(session, kSubject, {utf8("\t\0\0é"sv)}), "=?utf-8?Q?\t?=", kEncodingASCII);
  checkNull(call({.without = {"PluginGetStringData"}}, kSubject, {utf8("é")}));
  checkNull(call({.version = 2011.4, .failing = {{"REALConvertString", 0}}}, kSubject, {utf16(u"plain")}));
  for (const char* service : {"StringGetCString", "LenB"}) {
    checkNull(call({.without = {service}}, kSubject, {raw("A\xE9")}));
    checkNull(call({.version = 2012.0, .without = {service}}, kSubject, {raw("A")}));
  }
}

TEST_CASE("_yDecodeMemoryZQV: nil without an exception, or with one when the result can't be made") {
  CHECK(call(Options{}, kMemory, {block(kHello)}).block() == block("Hello"));
  checkNil({}, nilBlock());
  checkNil({}, block(""));
  checkNil({.answers = {{"memoryBlockGetSize", 0}}});
  checkNil({.answers = {{"memoryBlockGetSize", -1}}});
  checkNil({.without = {"memoryBlockGetSize"}});
  checkNil({.without = {"memoryBlockGetPtr"}});
  checkNoBlock({.without = {"newMemoryBlock"}}, kHello, "5");
  checkNoBlock({.failing = {{"newMemoryBlock", 1}}}, "=J=J=", "3");
  checkNoBlock({.failing = {{"memoryBlockGetPtr", 2}}}, kHello, "5");
}
