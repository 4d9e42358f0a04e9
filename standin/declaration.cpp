#include "standin/declaration.h"

#include <algorithm>
#include <cctype>

namespace standin {
namespace {

constexpr struct {
  const char* name;
  Type type;
} kTypes[] = {
    {"string", Type::kString},   {"integer", Type::kInteger},         {"double", Type::kDouble},
    {"boolean", Type::kBoolean}, {"memoryblock", Type::kMemoryBlock},
};

char lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

bool isWordCharacter(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

/// Takes tokens off the front of a text. Case counts for nothing, as in the host's language.
class Reader {
 public:
  explicit Reader(std::string_view text) noexcept : rest_(text) {}

  bool take(char punctuation) {
    skipBlanks();
    if (rest_.empty() || rest_.front() != punctuation) return false;
    rest_.remove_prefix(1);
    return true;
  }

  std::string takeWord() {
    skipBlanks();
    const auto end = std::find_if_not(rest_.begin(), rest_.end(), isWordCharacter);
    const std::string word(rest_.begin(), end);
    rest_.remove_prefix(word.size());
    return word;
  }

  bool takeKeyword(std::string_view keyword) {
    std::string word = takeWord();
    std::transform(word.begin(), word.end(), word.begin(), lower);
    return word == keyword;
  }

  std::optional<Type> takeType() {
    std::string word = takeWord();
    std::transform(word.begin(), word.end(), word.begin(), lower);
    for (const auto& [name, type] : kTypes) {
      if (word == name) return type;
    }
    return std::nullopt;
  }

  /// A number, a keyword or a quoted text.
  std::optional<std::string> takeLiteral() {
    if (take('"')) {
      const auto end = rest_.find('"');
      if (end == std::string_view::npos) return std::nullopt;
      std::string literal(rest_.substr(0, end));
      rest_.remove_prefix(end + 1);
      return literal;
    }
    const bool isNegative = take('-');
    std::string literal = takeWord();
    if (take('.')) literal += "." + takeWord();
    if (literal.empty()) return std::nullopt;
    return (isNegative ? "-" : "") + literal;
  }

  bool atEnd() {
    skipBlanks();
    return rest_.empty();
  }

 private:
  void skipBlanks() {
    while (!rest_.empty() && rest_.front() == ' ') rest_.remove_prefix(1);
  }

  std::string_view rest_;
};

std::optional<Parameter> parseParameter(Reader& reader) {
  Parameter parameter;
  parameter.name = reader.takeWord();
  if (parameter.name.empty() || !reader.takeKeyword("as")) return std::nullopt;
  const auto type = reader.takeType();
  if (!type) return std::nullopt;
  parameter.type = *type;
  if (reader.take('=')) {
    parameter.defaultValue = reader.takeLiteral();
    if (!parameter.defaultValue) return std::nullopt;
  }
  return parameter;
}

}  // namespace

const char* nameOf(Type type) noexcept {
  for (const auto& row : kTypes) {
    if (row.type == type) return row.name;
  }
  return "";
}

bool Declaration::accepts(std::size_t argumentCount) const noexcept {
  return argumentCount <= parameters.size() &&
         std::all_of(parameters.begin() + static_cast<std::ptrdiff_t>(argumentCount), parameters.end(),
                     [](const Parameter& parameter) { return parameter.defaultValue.has_value(); });
}

std::optional<Declaration> parseDeclaration(std::string_view text) {
  Reader reader(text);
  Declaration declaration;
  declaration.name = reader.takeWord();
  if (declaration.name.empty() || !reader.take('(')) return std::nullopt;
  if (!reader.take(')')) {
    do {
      auto parameter = parseParameter(reader);
      if (!parameter) return std::nullopt;
      declaration.parameters.push_back(std::move(*parameter));
    } while (reader.take(','));
    if (!reader.take(')')) return std::nullopt;
  }
  if (!reader.takeKeyword("as")) return std::nullopt;
  const auto result = reader.takeType();
  if (!result || !reader.atEnd()) return std::nullopt;
  declaration.result = *result;
  return declaration;
}

}  // namespace standin
