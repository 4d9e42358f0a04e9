/// The Rust crate memchr: substring search.
#include "bench/peers/peer.h"
#include "bench/peers/rust/lib.h"

namespace {

void count(const Operands& in, AnswerSink& answer) {
  const ByteView needle = in.bytes[1];
  answer.number(
      static_cast<double>(peer_memmem_count(in.first().data(), in.first().size(), needle.data(), needle.size())));
}

const PeerLines lines{{"count", "Rust memchr::memmem", count, nullptr}};

}  // namespace
