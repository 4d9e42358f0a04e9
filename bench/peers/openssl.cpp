/// OpenSSL: hex.
#include <openssl/crypto.h>

#include "bench/peers/peer.h"

namespace {

void encode(const Operands& in, AnswerSink& answer, char separator) {
  std::size_t length = 0;
  OPENSSL_buf2hexstr_ex(in.out(), in.scratch.size(), &length, in.first().data(), in.first().size(), separator);
  answer.text(in.out(), length - 1);
}

void toHex(const Operands& in, AnswerSink& answer) { encode(in, answer, '\0'); }
void toHexColons(const Operands& in, AnswerSink& answer) { encode(in, answer, ':'); }

void fromHex(const Operands& in, AnswerSink& answer) {
  std::size_t length = 0;
  OPENSSL_hexstr2buf_ex(in.scratch.data(), in.scratch.size(), &length, in.chars(), '\0');
  answer.text(in.out(), length);
}

const PeerLines lines{
    {"hex encode", "OpenSSL buf2hexstr", toHex, nullptr},
    {"hex decode", "OpenSSL hexstr2buf", fromHex, nullptr},
    {"hex dump", "OpenSSL buf2hexstr", toHexColons, "one line, colons"},
};

}  // namespace
