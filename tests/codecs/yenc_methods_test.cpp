#include "tests/reference/yenc.h"
#include "tests/support/methods.h"
#include "tests/support/random_bytes.h"

using namespace testing;

namespace {

constexpr char kString[] = "_yDecodeStringZQV";
constexpr char kMemory[] = "_yDecodeMemoryZQV";

constexpr std::string_view kHello = "\x72\x8F\x96\x96\x99";

void checkBlock(const Outcome& outcome, const Block& expected) {
  CHECK_FALSE(outcome.exception.has_value());
  CHECK(outcome.block() == expected);
}

void checkNoBlock(const Outcome& outcome, const char* size) {
  const std::string message = "Failed to allocate a memoryblock with "s + size + " bytes in size.";
  checkRaised(outcome, "OutOfMemoryException", message);
  CHECK(outcome.block().nil);
}

}  // namespace

TEST_CASE("_yDecodeStringZQV") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session({.version = version});
    checkText(call(session, kString, {raw(kHello)}), "Hello", kEncodingASCII);
    checkText(call(session, kString, {utf8("=}=M\r\n")}), "\x13\xE3\xE3\xE0", kEncodingNone);
    checkText(call(session, kString, {raw("=\x6A\x2A")}), "\0\0"sv, kEncodingASCII);
    checkNull(call(session, kString, {nullText()}));
    checkNull(call(session, kString, {raw("")}));
  }
  checkNull(call({.failing = {{"REALBuildString", 0}}}, kString, {raw(kHello)}));
}

TEST_CASE("_yDecodeMemoryZQV") {
  Session session;
  checkBlock(call(session, kMemory, {block(kHello)}), block("Hello"));
  checkBlock(call(session, kMemory, {block("=}=M\r\n")}), block("\x13\xE3\xE3\xE0"));
  RandomBytes random(37);
  const std::string bytes = random(100'000);
  checkBlock(call(session, kMemory, {block(reference::yencEncoded(bytes))}), block(bytes));
}

TEST_CASE("_yDecodeMemoryZQV: the block is held while it is read") {
  const std::vector<std::string> expected = {"REALLockObject", "memoryBlockGetSize", "memoryBlockGetPtr",
                                             "newMemoryBlock", "memoryBlockGetPtr",  "REALUnlockObject"};
  CHECK(call(Options{}, kMemory, {block(kHello)}).services == expected);
}

TEST_CASE("_yDecodeMemoryZQV: nil without an exception") {
  checkBlock(call(Options{}, kMemory, {nilBlock()}), nilBlock());
  checkBlock(call(Options{}, kMemory, {block("")}), nilBlock());
  checkBlock(call({.answers = {{"memoryBlockGetSize", 0}}}, kMemory, {block(kHello)}), nilBlock());
  checkBlock(call({.answers = {{"memoryBlockGetSize", -1}}}, kMemory, {block(kHello)}), nilBlock());
  checkBlock(call({.without = {"memoryBlockGetSize"}}, kMemory, {block(kHello)}), nilBlock());
  checkBlock(call({.without = {"memoryBlockGetPtr"}}, kMemory, {block(kHello)}), nilBlock());
}

TEST_CASE("_yDecodeMemoryZQV: an exception when the result can't be made") {
  checkNoBlock(call({.without = {"newMemoryBlock"}}, kMemory, {block(kHello)}), "5");
  checkNoBlock(call({.failing = {{"newMemoryBlock", 1}}}, kMemory, {block("=J=J=")}), "3");
  checkNoBlock(call({.failing = {{"memoryBlockGetPtr", 2}}}, kMemory, {block(kHello)}), "5");
}

TEST_CASE("yEnc: nothing beyond the end of the data is read") {
  Session session({.checking = true});
  for (std::size_t length = 0; length <= 130; ++length) {
    for (const char* end : {"=", "==", "===", "=}", "x"}) {
      const std::string data = std::string(length, 'x') + end;
      CAPTURE(length);
      CAPTURE(end);
      CHECK(call(session, kString, {raw(data)}).text().bytes == reference::yencDecoded(data));
      CHECK(call(session, kMemory, {block(data)}).block().bytes == reference::yencDecoded(data));
    }
  }
}
