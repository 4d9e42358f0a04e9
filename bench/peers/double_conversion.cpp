/// double-conversion: numbers as text.
#include <double-conversion/double-conversion.h>

#include "bench/peers/peer.h"

namespace {

using double_conversion::DoubleToStringConverter;
using double_conversion::StringBuilder;

const DoubleToStringConverter& converter() {
  constexpr int kFlags = DoubleToStringConverter::EMIT_POSITIVE_EXPONENT_SIGN;
  static const DoubleToStringConverter made(kFlags, "inf", "nan", 'e', -30, 40, 0, 0, 2);
  return made;
}

void shortest(const Operands& in, AnswerSink& answer) {
  StringBuilder text(in.out(), 400);
  converter().ToShortest(in.number, &text);
  answer.text(in.out(), static_cast<std::size_t>(text.position()));
}

void scientific(const Operands& in, AnswerSink& answer) {
  StringBuilder text(in.out(), 400);
  converter().ToExponential(in.number, in.integers[0], &text);
  answer.text(in.out(), static_cast<std::size_t>(text.position()));
}

const PeerLines lines{
    {"Str", "double-conversion", shortest, "writes the shortest digits that read back, rounded, without trailing zeros",
     true},
    {"Scientific", "double-conversion", scientific, "rounds ties away from zero"},
};

}  // namespace
