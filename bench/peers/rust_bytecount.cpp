/// The Rust crate bytecount: how often a byte occurs.
#include "bench/peers/peer.h"
#include "bench/peers/rust/lib.h"

namespace {

/// Longer needles are not its job.
void count(const Operands& in, AnswerSink& answer) {
  if (in.bytes[1].size() != 1) return;
  answer.number(static_cast<double>(peer_bytecount(in.first().data(), in.first().size(), in.bytes[1][0])));
}

const PeerLines lines{{"count", "Rust bytecount", count, nullptr}};

}  // namespace
