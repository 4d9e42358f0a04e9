/// GLib: markup, URIs, C escapes, character sets, regular expressions.
#include <glib.h>

#include "bench/peers/peer.h"

namespace {

gssize size(const Operands& in) { return static_cast<gssize>(in.first().size()); }

void give(char* text, AnswerSink& answer) {
  if (text == nullptr) return;
  answer.text(text);
  g_free(text);
}

void give(char* text, gsize length, AnswerSink& answer) {
  if (text == nullptr) return;
  answer.text(text, length);
  g_free(text);
}

void escapeMarkup(const Operands& in, AnswerSink& answer) { give(g_markup_escape_text(in.chars(), size(in)), answer); }

void escapeUri(const Operands& in, AnswerSink& answer) {
  give(g_uri_escape_bytes(in.first().data(), in.first().size(), "!*@+"), answer);
}

void unescapeUri(const Operands& in, AnswerSink& answer) {
  GBytes* const bytes = g_uri_unescape_bytes(in.chars(), size(in), nullptr, nullptr);
  if (bytes == nullptr) return;
  gsize length = 0;
  const void* const data = g_bytes_get_data(bytes, &length);
  answer.text(data, length);
  g_bytes_unref(bytes);
}

void compress(const Operands& in, AnswerSink& answer) { give(g_strcompress(in.chars()), answer); }

template <char kSet>
void fromSet(const Operands& in, AnswerSink& answer) {
  const char* const set = kSet == 'w' ? "WINDOWS-1252" : "ISO-8859-1";
  gsize length = 0;
  char* const text = g_convert(in.chars(), size(in), "UTF-8", set, nullptr, &length, nullptr);
  give(text, length, answer);
}

template <char kSet>
void toSet(const Operands& in, AnswerSink& answer) {
  const char* const set = kSet == 'w' ? "WINDOWS-1252" : "ISO-8859-1";
  gsize length = 0;
  char* const text = g_convert(in.chars(), size(in), set, "UTF-8", nullptr, &length, nullptr);
  give(text, length, answer);
}

void replaceBooleans(const Operands& in, AnswerSink& answer) {
  static GRegex* const words = g_regex_new(
      "\\b(?:(true)|false)\\b", static_cast<GRegexCompileFlags>(G_REGEX_CASELESS | G_REGEX_OPTIMIZE), {}, nullptr);
  const auto evaluate = [](const GMatchInfo* match, GString* result, gpointer) -> gboolean {
    gint begin = -1;
    g_match_info_fetch_pos(match, 1, &begin, nullptr);
    g_string_append_c(result, begin < 0 ? '0' : '1');
    return FALSE;
  };
  give(g_regex_replace_eval(words, in.chars(), size(in), 0, {}, evaluate, nullptr, nullptr), answer);
}

void removeTags(const Operands& in, AnswerSink& answer) {
  static GRegex* const tags = g_regex_new("<[^>]*>", G_REGEX_OPTIMIZE, {}, nullptr);
  give(g_regex_replace_literal(tags, in.chars(), size(in), 0, "", {}, nullptr), answer);
}

const PeerLines lines{
    {"HTML encode", "GLib g_markup_escape_text", escapeMarkup, "keeps what is not ASCII, writes &apos;"},
    {"XML encode", "GLib g_markup_escape_text", escapeMarkup, "writes &apos;"},
    {"URL encode", "GLib g_uri_escape_bytes", escapeUri, "keeps ~"},
    {"URL decode", "GLib g_uri_unescape_bytes", unescapeUri, nullptr},
    {"MySQL unescape", "GLib g_strcompress", compress, "C escapes: octal digits, no \\Z"},
    {"from ISO-8859-1", "GLib g_convert", fromSet<'i'>, nullptr},
    {"from Windows-1252", "GLib g_convert", fromSet<'w'>, nullptr},
    {"to ISO-8859-1", "GLib g_convert", toSet<'i'>, nullptr},
    {"to Windows-1252", "GLib g_convert", toSet<'w'>, nullptr},
    {"tag removal", "GLib GRegex", removeTags, "tags don't nest, brackets alone stay"},
    {"SQL booleans", "GLib GRegex", replaceBooleans, "rewrites inside quotation marks too, other word ends"},
};

}  // namespace
