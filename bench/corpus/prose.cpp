/// Prose in several scripts, of common words in random order.
#include "bench/corpus/texts.h"

namespace {

constexpr const char* kEnglish[] = {
    "the",   "of",    "and",    "window", "system", "people", "in",     "that",  "report", "with",  "is",    "was",
    "value", "table", "market", "from",   "this",   "which",  "number", "state", "under",  "light", "water", "between",
    "house", "small", "letter", "for",    "order",  "great",  "change", "not",   "are",    "have",  "other", "through",
};

constexpr const char* kEnglishMarks[] = {"don't", "\"yes\"", "it's", "R&D"};

constexpr const char* kFrench[] = {
    "le",   "de",     "été",   "où",        "fenêtre", "système", "déjà",    "français", "l'eau",    "maison",
    "qui",  "à",      "être",  "première",  "mais",    "pour",    "société", "naïf",     "garçon",   "cœur",
    "même", "lettre", "entre", "année",     "marché",  "homme",   "d'abord", "nombre",   "général",  "theâtre",
    "sur",  "point",  "voilà", "ministère", "grand",   "peut",    "leur",    "très",     "problème", "aujourd'hui",
};

constexpr const char* kWindowsFrench[] = {
    "le",
    "de",
    "\xE9t\xE9",
    "o\xF9",
    "fen\xEAtre",
    "syst\xE8me",
    "d\xE9j\xE0",
    "maison",
    "qui",
    "gar\xE7on",
    "c\x9Cur",
    "12 \x80",
    "l\x92"
    "eau",
    "\x93oui\x94",
    "ann\xE9"
    "e",
    "pour",
    "entre",
    "grand",
    "m\xEAme",
    "nombre",
    "tr\xE8s",
    "probl\xE8me",
    "homme",
    "point",
    "sur",
    "mais",
    "leur",
};

constexpr const char* kChinese[] = {"的", "一", "是", "在", "不", "了", "有", "和", "人", "这", "中", "大", "为", "上",
                                    "个", "国", "我", "以", "要", "他", "时", "来", "用", "们", "生", "到", "作", "地",
                                    "于", "出", "就", "分", "对", "成", "会", "可", "主", "发", "年", "动"};

constexpr const char* kEmoji[] = {"😀", "🚀", "🎉", "👍", "🔥", "🌍", "💡", "📚", "🐘", "🍕", "😂", "🙏"};

/// A word, then a blank, now and then the end of a sentence or of a line.
void addWord(std::string& text, Random& random, const char* word) {
  text += word;
  if (random.oneIn(12)) text += '.';
  if (random.oneIn(60)) {
    text += "\r\n";
  } else {
    text += ' ';
  }
}

}  // namespace

std::string corpus::english(std::size_t size, Random& random) {
  return grown(size, random, [](std::string& text, Random& chance) {
    addWord(text, chance, chance.oneIn(25) ? chance.pick(kEnglishMarks) : chance.pick(kEnglish));
  });
}

std::string corpus::plainEnglish(std::size_t size, Random& random) {
  return grown(size, random, [](std::string& text, Random& chance) { addWord(text, chance, chance.pick(kEnglish)); });
}

std::string corpus::french(std::size_t size, Random& random) {
  return grown(size, random, [](std::string& text, Random& chance) { addWord(text, chance, chance.pick(kFrench)); });
}

std::string corpus::chinese(std::size_t size, Random& random) {
  return grown(size, random,
               [](std::string& text, Random& chance) { text += chance.oneIn(14) ? "，" : chance.pick(kChinese); });
}

std::string corpus::emoji(std::size_t size, Random& random) {
  return grown(size, random, [](std::string& text, Random& chance) {
    text += chance.pick(kEmoji);
    if (chance.oneIn(4)) addWord(text, chance, chance.pick(kEnglish));
  });
}

std::string corpus::windowsFrench(std::size_t size, Random& random) {
  std::string text;
  while (text.size() < size) addWord(text, random, random.pick(kWindowsFrench));
  text.resize(size);
  return text;
}
