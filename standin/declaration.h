/// Declarations of methods in the host's language, as a plugin registers them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace standin {

enum class Type { kString, kInteger, kDouble, kBoolean, kMemoryBlock };

/// The type's name in the host's language.
[[nodiscard]] const char* nameOf(Type type) noexcept;

struct Parameter {
  std::string name;
  Type type;
  std::optional<std::string> defaultValue;  ///< as written, without quotes
};

struct Declaration {
  std::string name;
  std::vector<Parameter> parameters;
  Type result;

  /// Whether a call may give this many arguments, the rest having defaults.
  [[nodiscard]] bool accepts(std::size_t argumentCount) const noexcept;
};

/// Reads "name(parameter as type = default, ...) as type"; nothing where it isn't one.
[[nodiscard]] std::optional<Declaration> parseDeclaration(std::string_view text);

}  // namespace standin
