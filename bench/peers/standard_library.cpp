/// The C and C++ standard libraries: the loops one writes first.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "bench/peers/peer.h"

namespace {

void randLoop(const Operands& in, AnswerSink& answer) {
  const auto size = static_cast<std::size_t>(in.integers[0]);
  if (in.integers[1] != 0) {
    for (std::size_t i = 0; i < size; ++i) in.scratch[i] = static_cast<std::uint8_t>(32 + std::rand() % 96);
  } else {
    for (std::size_t i = 0; i < size; ++i) in.scratch[i] = static_cast<std::uint8_t>(std::rand());
  }
  answer.text(in.scratch.data(), size);
}

void compareBytes(const Operands& in, AnswerSink& answer) {
  const std::size_t shorter = std::min(in.bytes[0].size(), in.bytes[1].size());
  const int order = std::memcmp(in.bytes[0].data(), in.bytes[1].data(), shorter);
  answer.number(order < 0 ? -1 : order > 0 ? 1 : 0);
}

void countFind(const Operands& in, AnswerSink& answer) {
  const std::string_view text = in.text(0);
  const std::string_view needle = in.text(1);
  int count = 0;
  for (std::size_t at = text.find(needle); at != text.npos; at = text.find(needle, at + needle.size())) ++count;
  answer.number(count);
}

void countMemmem(const Operands& in, AnswerSink& answer) {
  const char* at = in.text(0).data();
  const char* const end = at + in.text(0).size();
  const std::string_view needle = in.text(1);
  int count = 0;
  const auto next = [&] {
    return static_cast<const char*>(memmem(at, static_cast<std::size_t>(end - at), needle.data(), needle.size()));
  };
  for (const char* found = next(); found != nullptr; found = next()) {
    ++count;
    at = found + needle.size();
  }
  answer.number(count);
}

void isAscii(const Operands& in, AnswerSink& answer) {
  answer.number(std::ranges::all_of(in.first(), [](std::uint8_t byte) { return byte < 0x80; }) ? 1 : 0);
}

void isPrintable(const Operands& in, AnswerSink& answer) {
  answer.number(std::ranges::all_of(in.first(), [](std::uint8_t byte) { return byte - 0x20U < 0x60; }) ? 1 : 0);
}

void isReady(const Operands& in, AnswerSink& answer) {
  constexpr std::string_view kMarkup{"\0\"&'<>", 6};
  const bool ascii = std::ranges::all_of(in.first(), [](std::uint8_t byte) { return byte < 0x80; });
  answer.number(ascii && in.text().find_first_of(kMarkup) == std::string_view::npos ? 1 : 0);
}

void replaceNonPrintables(const Operands& in, AnswerSink& answer) {
  const auto isOther = [](std::uint8_t byte) { return byte - 0x20U >= 0x60; };
  const auto replacement = static_cast<std::uint8_t>(in.integers[0]);
  std::ranges::replace_copy_if(in.first(), in.scratch.begin(), isOther, replacement);
  answer.text(in.scratch.data(), in.first().size());
}

void xorLoop(const Operands& in, AnswerSink& answer) {
  const ByteView mask = in.bytes[1];
  std::size_t k = static_cast<std::size_t>(in.integers[0]);
  for (std::size_t i = 0; i < in.first().size(); ++i) {
    in.scratch[i] = in.first()[i] ^ mask[k];
    if (++k == mask.size()) k = 0;
  }
  answer.text(in.scratch.data(), in.first().size());
}

template <typename Combine>
void loop(const Operands& in, AnswerSink& answer, Combine combine) {
  const ByteView mask = in.bytes[1];
  for (std::size_t i = 0, k = 0; i < in.first().size(); ++i) {
    in.scratch[i] = static_cast<std::uint8_t>(combine(in.first()[i], mask[k]));
    if (++k == mask.size()) k = 0;
  }
  answer.text(in.scratch.data(), in.first().size());
}

/// As `xorLoop`, with the position in the third place.
void xorPositionLoop(const Operands& in, AnswerSink& answer) {
  const ByteView mask = in.bytes[1];
  std::size_t k = static_cast<std::size_t>(in.integers[0]);
  for (std::size_t i = 0; i < in.first().size(); ++i) {
    in.scratch[i] = static_cast<std::uint8_t>(in.first()[i] ^ mask[k] ^ i);
    if (++k == mask.size()) k = 0;
  }
  answer.text(in.scratch.data(), in.first().size());
}

void andLoop(const Operands& in, AnswerSink& answer) { loop(in, answer, std::bit_and<>()); }
void orLoop(const Operands& in, AnswerSink& answer) { loop(in, answer, std::bit_or<>()); }

void append(const Operands& in, AnswerSink& answer) {
  std::string joined;
  for (std::size_t i = 0; i < in.count; ++i) joined += in.text(i);
  answer.text(joined);
}

/// Fifteen significant digits after the point where there are that many: what fits the digit limit most closely.
void toCharsFixed(const Operands& in, AnswerSink& answer) {
  char* const end = std::to_chars(in.out(), in.out() + 400, in.number, std::chars_format::fixed).ptr;
  answer.text(in.out(), static_cast<std::size_t>(end - in.out()));
}

void toCharsScientific(const Operands& in, AnswerSink& answer) {
  char* const end =
      std::to_chars(in.out(), in.out() + 400, in.number, std::chars_format::scientific, in.integers[0]).ptr;
  answer.text(in.out(), static_cast<std::size_t>(end - in.out()));
}

void printScientific(const Operands& in, AnswerSink& answer) {
  answer.text(in.out(), static_cast<std::size_t>(std::snprintf(in.out(), 400, "%.*e", in.integers[0], in.number)));
}

constexpr const char* kRandomRule = "draws other numbers";

const PeerLines lines{
    {"random bytes", "rand loop", randLoop, kRandomRule},
    {"compare bytes", "memcmp", compareBytes, nullptr},
    {"compare characters", "memcmp", compareBytes, nullptr},
    {"count", "string_view::find", countFind, nullptr},
    {"count", "memmem", countMemmem, nullptr},
    {"ASCII test", "std::all_of", isAscii, nullptr},
    {"printable test", "std::all_of", isPrintable, nullptr},
    {"HTML readiness", "std::find_first_of", isReady, nullptr},
    {"replace non-printables", "std::replace_copy_if", replaceNonPrintables, nullptr},
    {"AND", "byte loop", andLoop, nullptr},
    {"OR", "byte loop", orLoop, nullptr},
    {"XOR", "byte loop", xorLoop, nullptr},
    {"XOR2", "byte loop", xorPositionLoop, nullptr},
    {"concatenation", "std::string", append, nullptr},
    {"concatenation of six", "std::string", append, nullptr},
    {"Str", "std::to_chars", toCharsFixed, "writes the shortest digits that read back, rounded, without trailing zeros",
     true},
    {"Scientific", "std::to_chars", toCharsScientific, nullptr},
    {"Scientific", "snprintf", printScientific, nullptr},
};

}  // namespace
