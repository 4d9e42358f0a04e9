#include "markup/readiness.h"

#include "tests/reference/markup.h"
#include "tests/support/kernels.h"

namespace {

using Kernel = bool (*)(ByteView) noexcept;

bool isReady(Kernel kernel, std::string_view bytes, std::size_t offset = 0) {
  return kernel(PlacedBytes(bytes, offset).span());
}

/// Every byte at a random place of a text of every length.
void agreesWithTwin(Kernel kernel) {
  RandomBytes random(25);
  CHECK(isReady(kernel, ""));
  for (std::size_t length = 1; length <= 300; length += 1 + length / 40) {
    const std::string text = random.of("abc \t\r\n\x7F\x01;#=!(?%", length);
    CAPTURE(length);
    CHECK(isReady(kernel, text, random.below(32)));
    for (int value = 0; value < 256; ++value) {
      std::string bytes = text;
      bytes[random.below(length)] = static_cast<char>(value);
      REQUIRE(isReady(kernel, bytes, random.below(32)) == reference::isReady(bytes));
    }
  }
}

}  // namespace

TEST_CASE("readiness: every form agrees with the naive twin") {
  IN_EVERY_FORM(readiness, agreesWithTwin(form::isReady));
}
