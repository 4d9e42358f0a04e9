#include "codecs/email_subject.h"

#include "codecs/hex_escapes.h"
#include "tests/reference/email_subject.h"
#include "tests/support/kernels.h"

using namespace std::string_view_literals;

namespace {

std::string encoded(std::string_view text) {
  const PlacedBytes input(text, 0);
  OutputBuffer word;
  REQUIRE(email_subject::encode(input.span(), word));
  CHECK(word.size() == email_subject::encodedSize(input.span()));
  CHECK(word.room(word.data() + word.size()) >= kEscapeOverrun);
  return {reinterpret_cast<const char*>(word.data()), static_cast<std::size_t>(word.size())};
}

/// The kernels of one form, run over text of all lengths.
template <typename Find, typename Count, typename Encode>
void agreesWithTwin(Find find, Count count, Encode encode, std::size_t shortest) {
  RandomBytes random(35);
  constexpr std::string_view kPlain = " =_?azAZ09~\x7F";
  for (std::size_t length = shortest; length <= 150; ++length) {
    std::string text = random.of(kPlain, length);
    CAPTURE(length);
    CHECK(find(PlacedBytes(text, random.below(32)).span()) == length);
    for (const char odd : "\x1F\x80\xFF"sv) {
      if (length == 0) break;
      const std::size_t position = random.below(length);
      text[position] = odd;
      CHECK(find(PlacedBytes(text, 0).span()) <= position);
      CHECK(find(PlacedBytes(random.of(kPlain, position) + text.substr(position), 0).span()) == position);
    }
    const std::string mixed =
        random.of(length % 2 == 0 ? "ab c_=?\t\r\n\x01\x7F\x80\xC3\xFF" : "ab cd ef gh ij", length);
    const std::string word = reference::encodedWord(mixed);
    const PlacedBytes input(mixed, random.below(32));
    std::string out(word.size() + kEscapeOverrun, '\0');
    auto* const begin = reinterpret_cast<std::uint8_t*>(out.data());
    out.resize(static_cast<std::size_t>(encode(input.span(), begin) - begin));
    CHECK("=?utf-8?Q?" + out + "?=" == word);
    CHECK(count(input.span()) == (word.size() - 12 - length) / 2);
  }
}

}  // namespace

TEST_CASE("email subject: every byte") {
  for (int value = 0; value < 256; ++value) {
    const char byte = static_cast<char>(value);
    CAPTURE(value);
    CHECK(encoded({&byte, 1}) == reference::encodedWord({&byte, 1}));
    const bool isPlain = value >= 0x20 && value <= 0x7F;
    CHECK(email_subject::findNotPlain(PlacedBytes(std::string_view(&byte, 1), 0).span()) == (isPlain ? 1 : 0));
  }
}

TEST_CASE("email subject: long texts") {
  RandomBytes random(350);
  for (const std::size_t length : {300U, 1000U, 5000U, 100'000U}) {
    const std::string text = random(length);
    CHECK(encoded(text) == reference::encodedWord(text));
  }
}

TEST_CASE("email subject: escapes around the longest text that needs no allocation") {
  for (std::size_t length = 320; length <= OutputBuffer::kInlineSize / 3; ++length) {
    CAPTURE(length);
    const std::string text(length, '\xFF');
    CHECK(encoded(text) == reference::encodedWord(text));
  }
}

TEST_CASE("email subject: every form agrees with the naive twin") {
  IN_FORM(email_subject, scalar, agreesWithTwin(form::findNotPlain, form::countEscapes, form::encode, 0));
  IN_WIDE_FORM(email_subject, agreesWithTwin(form::findNotPlain, form::countEscapes, form::encode, 32));
#ifdef WIDE_AVX512
  namespace rest = email_subject::avx2;
  const auto encode = email_subject::avx512::encode;
  if (cpu::hasAvx512()) agreesWithTwin(rest::findNotPlain, rest::countEscapes, encode, 32);
#endif
}
