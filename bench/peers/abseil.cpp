/// Abseil: hex, C escapes, concatenation.
#include <absl/strings/escaping.h>
#include <absl/strings/str_cat.h>

#include "bench/peers/peer.h"

namespace {

absl::string_view view(const Operands& in, std::size_t index = 0) {
  return {reinterpret_cast<const char*>(in.bytes[index].data()), in.bytes[index].size()};
}

void toHex(const Operands& in, AnswerSink& answer) { answer.text(absl::BytesToHexString(view(in))); }
void fromHex(const Operands& in, AnswerSink& answer) { answer.text(absl::HexStringToBytes(view(in))); }

void unescape(const Operands& in, AnswerSink& answer) {
  std::string text;
  if (absl::CUnescape(view(in), &text)) answer.text(text);
}

void concatenateTwo(const Operands& in, AnswerSink& answer) { answer.text(absl::StrCat(view(in, 0), view(in, 1))); }

void concatenateSix(const Operands& in, AnswerSink& answer) {
  answer.text(absl::StrCat(view(in, 0), view(in, 1), view(in, 2), view(in, 3), view(in, 4), view(in, 5)));
}

const PeerLines lines{
    {"hex encode", "Abseil BytesToHexString", toHex, "lower-case digits"},
    {"hex decode", "Abseil HexStringToBytes", fromHex, nullptr},
    {"MySQL unescape", "Abseil CUnescape", unescape, "C escapes: octal digits, no \\Z"},
    {"concatenation", "Abseil StrCat", concatenateTwo, nullptr},
    {"concatenation of six", "Abseil StrCat", concatenateSix, nullptr},
};

}  // namespace
