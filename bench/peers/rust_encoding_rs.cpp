/// The Rust crate encoding_rs: character sets, and the test for ASCII.
#include "bench/peers/peer.h"
#include "bench/peers/rust/lib.h"

namespace {

template <auto function>
void convert(const Operands& in, AnswerSink& answer) {
  answer.text(in.out(), function(in.first().data(), in.first().size(), in.scratch.data(), in.scratch.size()));
}

/// Text with a character outside the set is not its job.
void toLatin1(const Operands& in, AnswerSink& answer) {
  const std::size_t size =
      peer_latin1_encode(in.first().data(), in.first().size(), in.scratch.data(), in.scratch.size());
  if (size != 0) answer.text(in.out(), size);
}

void isAscii(const Operands& in, AnswerSink& answer) {
  answer.number(peer_ascii_prefix(in.first().data(), in.first().size()) == in.first().size() ? 1 : 0);
}

const PeerLines lines{
    {"from ISO-8859-1", "Rust encoding_rs", convert<peer_latin1_decode>, nullptr},
    {"from Windows-1252", "Rust encoding_rs", convert<peer_windows1252_decode>,
     "control characters where the set has no character"},
    {"to ISO-8859-1", "Rust encoding_rs", toLatin1, nullptr},
    {"to Windows-1252", "Rust encoding_rs", convert<peer_windows1252_encode>,
     "decimal references for characters outside the set"},
    {"ASCII test", "Rust encoding_rs", isAscii, nullptr},
};

}  // namespace
