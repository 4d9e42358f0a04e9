/// The Rust crate percent-encoding.
#include "bench/peers/peer.h"
#include "bench/peers/rust/lib.h"

namespace {

template <auto function>
void run(const Operands& in, AnswerSink& answer) {
  answer.text(in.out(), function(in.first().data(), in.first().size(), in.scratch.data()));
}

const PeerLines lines{
    {"URL encode", "Rust percent-encoding", run<peer_percent_encode>, nullptr},
    {"URL decode", "Rust percent-encoding", run<peer_percent_decode>, "keeps what is no escape"},
};

}  // namespace
