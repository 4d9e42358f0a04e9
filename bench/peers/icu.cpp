/// ICU: character sets.
#include <unicode/ucnv.h>

#include "bench/peers/peer.h"

namespace {

/// Converters are opened once, as a program that converts much does.
UConverter* openSet(const char* name) {
  UErrorCode status = U_ZERO_ERROR;
  UConverter* const converter = ucnv_open(name, &status);
  ucnv_setFromUCallBack(converter, UCNV_FROM_U_CALLBACK_SKIP, nullptr, nullptr, nullptr, &status);
  return converter;
}

UConverter* latin1() {
  static UConverter* const converter = openSet("ISO-8859-1");
  return converter;
}

UConverter* windows1252() {
  static UConverter* const converter = openSet("windows-1252");
  return converter;
}

UConverter* utf8() {
  static UConverter* const converter = openSet("UTF-8");
  return converter;
}

void convert(const Operands& in, AnswerSink& answer, UConverter* from, UConverter* to) {
  UErrorCode status = U_ZERO_ERROR;
  const char* source = in.chars();
  char* target = in.out();
  UChar pivot[1024];
  UChar* pivotSource = pivot;
  UChar* pivotTarget = pivot;
  ucnv_convertEx(to, from, &target, in.out() + in.scratch.size(), &source, source + in.first().size(), pivot,
                 &pivotSource, &pivotTarget, pivot + 1024, true, true, &status);
  answer.text(in.out(), static_cast<std::size_t>(target - in.out()));
}

const PeerLines lines{
    {"from ISO-8859-1", "ICU", [](const Operands& in, AnswerSink& out) { convert(in, out, latin1(), utf8()); },
     nullptr},
    {"from Windows-1252", "ICU", [](const Operands& in, AnswerSink& out) { convert(in, out, windows1252(), utf8()); },
     "control characters where the set has no character"},
    {"to ISO-8859-1", "ICU", [](const Operands& in, AnswerSink& out) { convert(in, out, utf8(), latin1()); }, nullptr},
    {"to Windows-1252", "ICU", [](const Operands& in, AnswerSink& out) { convert(in, out, utf8(), windows1252()); },
     "knows control characters where the set has no character"},
};

}  // namespace
