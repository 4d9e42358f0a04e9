/// The Rust crate strsim: distances.
#include <algorithm>

#include "bench/peers/peer.h"
#include "bench/peers/rust/lib.h"

namespace {

double characters(ByteView text) {
  return static_cast<double>(std::ranges::count_if(text, [](std::uint8_t byte) { return (byte & 0xC0) != 0x80; }));
}

void levenshtein(const Operands& in, AnswerSink& answer) {
  const ByteView a = in.bytes[0];
  const ByteView b = in.bytes[1];
  const auto distance = static_cast<double>(peer_osa_distance(a.data(), a.size(), b.data(), b.size()));
  answer.number(1.0 / (std::min(characters(a), characters(b)) / distance));
}

void jaroWinkler(const Operands& in, AnswerSink& answer) {
  const ByteView a = in.bytes[0];
  const ByteView b = in.bytes[1];
  answer.number(1.0 - peer_jaro_winkler(a.data(), a.size(), b.data(), b.size()));
}

const PeerLines lines{
    {"Levenshtein", "Rust strsim", levenshtein, nullptr},
    {"Jaro-Winkler", "Rust strsim", jaroWinkler, "counts the whole common prefix, not four characters of it"},
};

}  // namespace
