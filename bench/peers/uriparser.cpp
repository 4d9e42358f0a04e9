/// uriparser: percent-encoding.
#include <cstring>
#include <uriparser/Uri.h>

#include "bench/peers/peer.h"

namespace {

void escape(const Operands& in, AnswerSink& answer) {
  const char* const end = uriEscapeExA(in.chars(), in.chars() + in.first().size(), in.out(), URI_FALSE, URI_FALSE);
  answer.text(in.out(), static_cast<std::size_t>(end - in.out()));
}

/// It works in place and up to a zero byte, so the text is copied first.
void unescape(const Operands& in, AnswerSink& answer) {
  std::memcpy(in.out(), in.chars(), in.first().size());
  in.out()[in.first().size()] = 0;
  const char* const end = uriUnescapeInPlaceExA(in.out(), URI_FALSE, URI_BR_DONT_TOUCH);
  answer.text(in.out(), static_cast<std::size_t>(end - in.out()));
}

const PeerLines lines{
    {"URL encode", "uriparser", escape, "keeps ~, escapes ! * @ +"},
    {"URL decode", "uriparser", unescape, "keeps what is no escape"},
};

}  // namespace
