/// curl: percent-encoding.
#include <curl/curl.h>

#include "bench/peers/peer.h"

namespace {

void escape(const Operands& in, AnswerSink& answer) {
  char* const text = curl_easy_escape(nullptr, in.chars(), static_cast<int>(in.first().size()));
  if (text == nullptr) return;
  answer.text(text);
  curl_free(text);
}

void unescape(const Operands& in, AnswerSink& answer) {
  int length = 0;
  char* const text = curl_easy_unescape(nullptr, in.chars(), static_cast<int>(in.first().size()), &length);
  if (text == nullptr) return;
  answer.text(text, static_cast<std::size_t>(length));
  curl_free(text);
}

const PeerLines lines{
    {"URL encode", "curl", escape, "keeps ~, escapes ! * @ +"},
    {"URL decode", "curl", unescape, "keeps what is no escape"},
};

}  // namespace
