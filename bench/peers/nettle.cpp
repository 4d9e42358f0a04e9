/// nettle: hex, and XOR of equal lengths.
#include <nettle/base16.h>
#include <nettle/memxor.h>

#include "bench/peers/peer.h"

namespace {

void encode(const Operands& in, AnswerSink& answer) {
  base16_encode_update(in.out(), in.first().size(), in.first().data());
  answer.text(in.out(), BASE16_ENCODE_LENGTH(in.first().size()));
}

void decode(const Operands& in, AnswerSink& answer) {
  base16_decode_ctx state;
  base16_decode_init(&state);
  std::size_t length = in.scratch.size();
  base16_decode_update(&state, &length, in.scratch.data(), in.first().size(), in.chars());
  answer.text(in.out(), length);
}

/// A mask as long as the data; a shorter one is not its job.
void exclusiveOr(const Operands& in, AnswerSink& answer) {
  if (in.bytes[1].size() < in.first().size()) return;
  memxor3(in.scratch.data(), in.first().data(), in.bytes[1].data(), in.first().size());
  answer.text(in.out(), in.first().size());
}

const PeerLines lines{
    {"hex encode", "nettle base16", encode, "lower-case digits"},
    {"hex decode", "nettle base16", decode, nullptr},
    {"XOR", "nettle memxor3", exclusiveOr, nullptr},
};

}  // namespace
