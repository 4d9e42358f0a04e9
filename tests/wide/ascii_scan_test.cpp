#include "wide/ascii_scan.h"

#include "tests/support/kernels.h"

TEST_CASE("the first byte of 0x80 or above is found at every length, place and alignment") {
  for (std::size_t length = 0; length <= 200; ++length) {
    for (std::size_t place = 0; place <= length; place += 1 + place / 40) {
      std::string text(length, '\x7F');
      for (std::size_t i = place; i < length; i += 3) text[i] = '\x80';
      CAPTURE(length);
      CAPTURE(place);
      const PlacedBytes bytes(text, length % 64);
      IN_FORM(ascii, scalar, CHECK(form::findNonAscii(bytes.span()) == place));
      if (length >= 32) IN_WIDE_FORM(ascii, CHECK(form::findNonAscii(bytes.span()) == place));
      CHECK(ascii::findNonAscii(bytes.span()) == place);
    }
  }
}
