#include "codecs/yenc.h"

#include "tests/reference/yenc.h"
#include "tests/support/kernels.h"

using namespace std::string_view_literals;

namespace {

constexpr Example kExamples[] = {
    {"plain letters", "\x72\x8F\x96\x96\x99", "Hello"},
    {"the smallest byte, escaped and not", "=\x6A\x2A", "\0\0"sv},
    {"escapes", "=}=M", "\x13\xE3"},
    {"escapes in a row of odd length", "===\x72", "\xD3\x08"},
    {"a final escape", "\x72=", "H\x96"},
};

std::string decoded(std::string_view data) { return shortened(yenc::decode, data); }

void agreesWithTwin(ShorteningKernel kernel) {
  const auto run = [kernel](std::string_view data, std::size_t offset) { return shortened(kernel, data, offset); };
  checkAgainstTwin({"abcdefghijklmnopqrstuvwxyz\x80\xFF=", "ab=", "=", "a=b=c=d", "====a"}, run,
                   reference::yencDecoded);
  RandomBytes random(36);
  const std::string bytes = random(3000);
  CHECK(run(reference::yencEncoded(bytes), 0) == bytes);
}

}  // namespace

TEST_CASE("yenc: examples") { checkExamples(kExamples, decoded, reference::yencDecoded); }

TEST_CASE("yenc: every form agrees with the naive twin") {
  IN_EVERY_FORM(yenc, agreesWithTwin(form::decode));
#ifdef WIDE_AVX512
  if (cpu::hasAvx512()) IN_FORM(yenc, avx512, agreesWithTwin(form::decode));
#endif
}

TEST_CASE("yenc: every choice of escapes around the end of a vector") {
  for (const std::size_t first : {27U, 59U}) {
    for (unsigned choice = 0; choice < 1024; ++choice) {
      std::string data(110, 'x');
      for (unsigned i = 0; i < 10; ++i) {
        if ((choice >> i & 1U) != 0) data[first + i] = '=';
      }
      CAPTURE(choice);
      const std::string bytes = reference::yencDecoded(data);
      IN_EVERY_FORM(yenc, CHECK(shortened(form::decode, data) == bytes));
#ifdef WIDE_AVX512
      if (cpu::hasAvx512()) IN_FORM(yenc, avx512, CHECK(shortened(form::decode, data) == bytes));
#endif
    }
  }
}
