/// What is sent and stored: queries, mail, transfer encodings, SQL.
#include "bench/corpus/texts.h"

namespace {

constexpr const char* kKeys[] = {"id", "page", "user", "q", "sort", "lang", "filter", "token"};
constexpr const char* kTables[] = {"orders", "customers", "items", "invoices"};
constexpr const char* kColumns[] = {"active", "paid", "name", "price", "created"};
constexpr const char* kBooleans[] = {"TRUE", "false", "True", "FALSE"};
constexpr char kHexDigits[] = "0123456789ABCDEF";

void addEscape(std::string& text, char sign, unsigned byte) {
  text += sign;
  text += kHexDigits[byte >> 4 & 0x0F];
  text += kHexDigits[byte & 0x0F];
}

/// Escapes what doesn't pass `isPlain`, as URL and quoted-printable encoders do.
template <typename IsPlain>
std::string escaped(const std::string& source, char sign, IsPlain isPlain) {
  std::string text;
  for (const char c : source) {
    if (isPlain(c)) {
      text += c;
    } else {
      addEscape(text, sign, static_cast<unsigned char>(c));
    }
  }
  return text;
}

/// Cuts an encoded text without cutting an escape, and fills up with letters.
std::string cut(std::string text, std::size_t size, char sign) {
  text.resize(size);
  const std::size_t last = text.rfind(sign);
  if (last != text.npos && size - last < 3) text.resize(last);
  text.resize(size, 'a');
  return text;
}

bool isUnreserved(char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

}  // namespace

std::string corpus::query(std::size_t size, Random& random) {
  return grown(size, random, [](std::string& text, Random& chance) {
    text += chance.pick(kKeys);
    text += '=';
    text += chance.oneIn(3) ? french(8 + chance.below(12), chance) : letters(4 + chance.below(12), chance);
    text += '&';
  });
}

std::string corpus::encodedQuery(std::size_t size, Random& random) {
  const auto isPlain = [](char c) { return isUnreserved(c) || c == '=' || c == '&'; };
  return cut(escaped(query(size, random), '%', isPlain), size, '%');
}

std::string corpus::percentEncoded(std::size_t size, Random& random) {
  return cut(escaped(bytes(size, random), '%', [](char) { return false; }), size, '%');
}

std::string corpus::mail(std::size_t size, Random& random) {
  return grown(size, random, [](std::string& text, Random& chance) {
    text += french(30 + chance.below(120), chance);
    text += chance.oneIn(5) ? " \r\n" : "\r\n";
  });
}

std::string corpus::quotedPrintableMail(std::size_t size, Random& random) {
  std::string text;
  while (text.size() < size) {
    const auto isPlain = [](char c) { return c == ' ' || (c > 0x20 && c < 0x7F && c != '='); };
    std::string line = french(60, random);
    std::erase_if(line, [](char c) { return c == '\r' || c == '\n'; });
    text += escaped(line, '=', isPlain);
    text += random.oneIn(3) ? "\r\n" : "=\r\n";
  }
  return cut(std::move(text), size, '=');
}

std::string corpus::quotedPrintableBytes(std::size_t size, Random& random) {
  return cut(escaped(highBytes(size, random), '=', [](char) { return false; }), size, '=');
}

std::string corpus::yencData(std::size_t size, Random& random) {
  std::string text;
  while (text.size() < size) {
    const auto byte = static_cast<char>(random.below(256) + 42);
    const bool critical = byte == 0 || byte == '\n' || byte == '\r' || byte == '=';
    if (critical) text += '=';
    text += critical ? static_cast<char>(byte + 64) : byte;
  }
  text.resize(size);
  if (text.back() == '=') text.back() = 'a';
  return text;
}

std::string corpus::mysqlText(std::size_t size, Random& random) {
  std::string text;
  while (text.size() < size) {
    text += plainEnglish(15 + random.below(60), random);
    text += random.pick({"\\'", "\\n", "\\\"", "\\r\\n"});
  }
  return cut(std::move(text), size, '\\');
}

std::string corpus::mysqlBinary(std::size_t size, Random& random) {
  std::string text;
  while (text.size() < size) text += random.pick({"\\0", "\\\\", "\\'", "\\Z", "\\n", "\\\""});
  return cut(std::move(text), size, '\\');
}

std::string corpus::sqlStatements(std::size_t size, Random& random) {
  return grown(size, random, [](std::string& text, Random& chance) {
    text += std::string("UPDATE ") + chance.pick(kTables) + " SET " + chance.pick(kColumns) + " = ";
    text += std::string(chance.pick(kBooleans)) + ", name = '" + plainEnglish(12, chance) + "' WHERE ";
    text += std::string(chance.pick(kColumns)) + " = " + chance.pick(kBooleans) + " AND id < 4711;\n";
  });
}

std::string corpus::sqlBooleans(std::size_t size, Random& random) {
  return grown(size, random, [](std::string& text, Random& chance) {
    text += chance.pick(kBooleans);
    text += ',';
  });
}

std::string corpus::hexDigits(std::size_t size, Random& random) {
  return grown(size, random, [](std::string& text, Random& chance) { text += kHexDigits[chance.below(16)]; });
}
