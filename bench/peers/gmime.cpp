/// GMime: quoted-printable, header words, yEnc.
#include <gmime/gmime.h>

#include "bench/peers/peer.h"

namespace {

template <bool kEncode>
void quotedPrintable(const Operands& in, AnswerSink& answer) {
  GMimeEncoding state;
  if (kEncode) {
    g_mime_encoding_init_encode(&state, GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE);
  } else {
    g_mime_encoding_init_decode(&state, GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE);
  }
  answer.text(in.out(), g_mime_encoding_flush(&state, in.chars(), in.first().size(), in.out()));
}

void encodeSubject(const Operands& in, AnswerSink& answer) {
  char* const text = g_mime_utils_header_encode_text(nullptr, in.chars(), "utf-8");
  answer.text(text);
  g_free(text);
}

void decodeYenc(const Operands& in, AnswerSink& answer) {
  int state = GMIME_YDECODE_STATE_INIT | GMIME_YDECODE_STATE_BEGIN;
  auto partSum = static_cast<guint32>(GMIME_YENCODE_CRC_INIT);
  auto sum = static_cast<guint32>(GMIME_YENCODE_CRC_INIT);
  answer.text(in.out(),
              g_mime_ydecode_step(in.first().data(), in.first().size(), in.scratch.data(), &state, &partSum, &sum));
}

const bool ready = (g_mime_init(), true);

const PeerLines lines{
    {"quoted-printable encode", "GMime", quotedPrintable<true>, "lines of 76, keeps the line breaks of the text"},
    {"quoted-printable decode", "GMime", quotedPrintable<false>, "keeps CR LF, copies bad escapes"},
    {"e-mail subject", "GMime", encodeSubject, "splits into words of 75 characters, chooses B or Q", true},
    {"yEnc decode", "GMime", decodeYenc, "reads header lines, computes a checksum"},
};

}  // namespace
