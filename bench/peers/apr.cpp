/// The Apache portable runtime and its utilities: percent-encoding, hex, XML quoting.
#include <apr_escape.h>
#include <apr_general.h>
#include <apr_xml.h>

#include "bench/peers/peer.h"

namespace {

apr_pool_t* pool() {
  static apr_pool_t* const made = [] {
    apr_initialize();
    apr_pool_t* first = nullptr;
    apr_pool_create(&first, nullptr);
    return first;
  }();
  return made;
}

apr_ssize_t size(const Operands& in) { return static_cast<apr_ssize_t>(in.first().size()); }

void escapeUrl(const Operands& in, AnswerSink& answer) {
  apr_size_t length = 0;
  apr_escape_urlencoded(in.out(), in.chars(), size(in), &length);
  answer.text(in.out(), length - 1);
}

void unescapeUrl(const Operands& in, AnswerSink& answer) {
  apr_size_t length = 0;
  if (apr_unescape_url(in.out(), in.chars(), size(in), nullptr, nullptr, 0, &length) != APR_SUCCESS) return;
  answer.text(in.out(), length - 1);
}

void escapeHex(const Operands& in, AnswerSink& answer) {
  apr_size_t length = 0;
  apr_escape_hex(in.out(), in.first().data(), in.first().size(), 0, &length);
  answer.text(in.out(), length - 1);
}

void escapeHexColons(const Operands& in, AnswerSink& answer) {
  apr_size_t length = 0;
  apr_escape_hex(in.out(), in.first().data(), in.first().size(), 1, &length);
  answer.text(in.out(), length - 1);
}

void unescapeHex(const Operands& in, AnswerSink& answer) {
  apr_size_t length = 0;
  apr_unescape_hex(in.scratch.data(), in.chars(), size(in), 0, &length);
  answer.text(in.out(), length);
}

void escapeEntities(const Operands& in, AnswerSink& answer) {
  apr_size_t length = 0;
  apr_escape_entity(in.out(), in.chars(), size(in), 0, &length);
  answer.text(in.out(), length - 1);
}

void quoteXml(const Operands& in, AnswerSink& answer) {
  apr_pool_t* const own = pool();
  answer.text(apr_xml_quote_string(own, in.chars(), 1));
  apr_pool_clear(own);
}

const PeerLines lines{
    {"HTML encode", "apr apr_escape_entity", escapeEntities, "keeps what is not ASCII"},
    {"XML encode", "apr-util apr_xml_quote_string", quoteXml, "keeps the apostrophe"},
    {"URL encode", "apr apr_escape_urlencoded", escapeUrl, "lower-case digits, blank as +; escapes ! @ +"},
    {"URL decode", "apr apr_unescape_url", unescapeUrl, nullptr},
    {"hex encode", "apr apr_escape_hex", escapeHex, "lower-case digits"},
    {"hex dump", "apr apr_escape_hex", escapeHexColons, "lower-case digits, one line, colons"},
    {"hex decode", "apr apr_unescape_hex", unescapeHex, nullptr},
};

}  // namespace
