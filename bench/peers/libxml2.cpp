/// libxml2: escaping for HTML and XML, percent-encoding, ISO-8859-1.
#include <libxml/HTMLparser.h>
#include <libxml/encoding.h>
#include <libxml/entities.h>
#include <libxml/uri.h>

#include "bench/peers/peer.h"

namespace {

const xmlChar* chars(const Operands& in) { return in.first().data(); }

template <typename Convert>
void convert(const Operands& in, AnswerSink& answer, Convert function) {
  int outSize = static_cast<int>(in.scratch.size());
  int inSize = static_cast<int>(in.first().size());
  function(in.scratch.data(), &outSize, in.first().data(), &inSize);
  if (inSize != std::ssize(in.first())) return;  // stopped at a character it can't write
  answer.text(in.scratch.data(), static_cast<std::size_t>(outSize));
}

void encodeEntities(const Operands& in, AnswerSink& answer) {
  convert(in, answer, [](unsigned char* out, int* outSize, const unsigned char* from, int* size) {
    return htmlEncodeEntities(out, outSize, from, size, '"');
  });
}

void toHtml(const Operands& in, AnswerSink& answer) { convert(in, answer, UTF8ToHtml); }
void toLatin1(const Operands& in, AnswerSink& answer) { convert(in, answer, UTF8Toisolat1); }
void fromLatin1(const Operands& in, AnswerSink& answer) { convert(in, answer, isolat1ToUTF8); }

/// Texts of more than a mebibyte are refused by some of its functions, with a message.
void give(xmlChar* text, AnswerSink& answer) {
  if (text == nullptr) return;
  answer.text(reinterpret_cast<const char*>(text));
  xmlFree(text);
}

void encodeSpecial(const Operands& in, AnswerSink& answer) { give(xmlEncodeSpecialChars(nullptr, chars(in)), answer); }
void escapeUri(const Operands& in, AnswerSink& answer) { give(xmlURIEscapeStr(chars(in), BAD_CAST "!*@"), answer); }

void unescapeUri(const Operands& in, AnswerSink& answer) {
  const char* const end = xmlURIUnescapeString(in.chars(), static_cast<int>(in.first().size()), in.out());
  answer.text(end);
}

void ignoreMessage(void*, const char*, ...) {}

const bool quiet = (xmlSetGenericErrorFunc(nullptr, ignoreMessage), true);

const PeerLines lines{
    {"HTML encode", "libxml2 htmlEncodeEntities", encodeEntities, "keeps the apostrophe"},
    {"HTML encode, markup kept", "libxml2 UTF8ToHtml", toHtml, "knows HTML 4 names only"},
    {"XML encode", "libxml2 xmlEncodeSpecialChars", encodeSpecial, "keeps the apostrophe, writes CR as a reference"},
    {"to ISO-8859-1", "libxml2 UTF8Toisolat1", toLatin1, nullptr},
    {"from ISO-8859-1", "libxml2 isolat1ToUTF8", fromLatin1, nullptr},
    {"URL encode", "libxml2 xmlURIEscapeStr", escapeUri, "keeps ~ ' ( ), escapes +"},
    {"URL decode", "libxml2 xmlURIUnescapeString", unescapeUri, "keeps what is no escape, ends at a zero byte"},
};

}  // namespace
