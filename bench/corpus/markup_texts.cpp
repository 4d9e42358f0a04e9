/// Markup, and text full of what has to be escaped or decoded.
#include "bench/corpus/texts.h"

namespace {

constexpr const char* kOpening[] = {"<p>", "<div class=\"row\">", "<a href=\"/item?id=7&amp;page=2\">", "<li>",
                                    "<b>", "<td align='right'>",  "<span style=\"color: red\">",        "<h2>"};
constexpr const char* kClosing[] = {"</p>\n", "</div>\n", "</a>", "</li>\n", "</b>", "</td>", "</span>", "</h2>\n"};
constexpr const char* kReferences[] = {"&amp;",  "&lt;",    "&gt;",     "&quot;",   "&eacute;", "&nbsp;", "&#39;",
                                       "&euro;", "&#8217;", "&hellip;", "&agrave;", "&#x2014;", "&copy;", "&ccedil;"};
constexpr char kMarkup[] = {'<', '>', '&', '"', '\''};

}  // namespace

std::string corpus::htmlPage(std::size_t size, Random& random) {
  return grown(size, random, [](std::string& text, Random& chance) {
    const std::size_t tag = chance.below(std::size(kOpening));
    text += kOpening[tag];
    text += english(20 + chance.below(80), chance);
    text += kClosing[tag];
  });
}

std::string corpus::bareMarkup(std::size_t size, Random& random) {
  return grown(size, random, [](std::string& text, Random& chance) { text += chance.pick(kMarkup); });
}

std::string corpus::sparseReferences(std::size_t size, Random& random) {
  return grown(size, random, [](std::string& text, Random& chance) {
    text += chance.pick(kReferences);
    text += plainEnglish(40 + chance.below(80), chance);
  });
}

std::string corpus::denseReferences(std::size_t size, Random& random) {
  return grown(size, random, [](std::string& text, Random& chance) { text += chance.pick(kReferences); });
}
