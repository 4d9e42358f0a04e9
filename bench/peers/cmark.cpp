/// cmark's houdini: HTML escaping and unescaping of a Markdown processor. Its header isn't installed, its functions
/// are in the static library.
#include <cmark.h>

#include "bench/peers/peer.h"

extern "C" {
struct cmark_strbuf {
  cmark_mem* mem;
  unsigned char* ptr;
  std::int32_t asize;
  std::int32_t size;
};
void cmark_strbuf_init(cmark_mem* mem, cmark_strbuf* buffer, std::int32_t initialSize);
void cmark_strbuf_free(cmark_strbuf* buffer);
int houdini_escape_html0(cmark_strbuf* out, const std::uint8_t* text, std::int32_t size, int secure);
int houdini_escape_href(cmark_strbuf* out, const std::uint8_t* text, std::int32_t size);
void houdini_unescape_html_f(cmark_strbuf* out, const std::uint8_t* text, std::int32_t size);
}

namespace {

template <typename Transform>
void transform(const Operands& in, AnswerSink& answer, Transform function) {
  const auto size = static_cast<std::int32_t>(in.first().size());
  cmark_strbuf buffer;
  cmark_strbuf_init(cmark_get_default_mem_allocator(), &buffer, 0);
  function(&buffer, in.first().data(), size);
  answer.text(buffer.ptr, static_cast<std::size_t>(buffer.size));
  cmark_strbuf_free(&buffer);
}

void escape(const Operands& in, AnswerSink& answer) {
  transform(in, answer, [](auto* out, auto* text, auto size) { houdini_escape_html0(out, text, size, 0); });
}

void escapeHref(const Operands& in, AnswerSink& answer) { transform(in, answer, houdini_escape_href); }
void unescape(const Operands& in, AnswerSink& answer) { transform(in, answer, houdini_unescape_html_f); }

const PeerLines lines{
    {"HTML encode", "cmark houdini", escape, "keeps the apostrophe and what is not ASCII"},
    {"XML encode", "cmark houdini", escape, "keeps the apostrophe"},
    {"entity decode", "cmark houdini", unescape, "HTML 5 names; needs the semicolon"},
    {"URL encode", "cmark houdini_escape_href", escapeHref, "keeps what URLs are made of, writes & as a reference"},
};

}  // namespace
