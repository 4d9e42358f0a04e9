/// Values as a program of the host knows them: what goes into a call and what comes out.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/encodings.h"

namespace standin {

/// A string. The null handle is the empty string, and is told from a string of no bytes.
struct Text {
  std::string bytes;
  TextEncoding encoding = kEncodingNone;
  bool null = false;
  std::size_t stretchedTo = 0;  ///< of an argument, above the number of bytes: they go on repeating up to so many

  bool operator==(const Text&) const = default;
};

[[nodiscard]] inline Text marked(std::string_view bytes, TextEncoding encoding) {
  return {std::string(bytes), encoding, false};
}
[[nodiscard]] inline Text utf8(std::string_view bytes) { return marked(bytes, kEncodingUTF8); }
[[nodiscard]] inline Text ascii(std::string_view bytes) { return marked(bytes, kEncodingASCII); }
[[nodiscard]] inline Text raw(std::string_view bytes) { return marked(bytes, kEncodingNone); }
[[nodiscard]] inline Text nullText() { return {{}, kEncodingNone, true}; }

/// Code units as they lie in memory; any value may occur.
[[nodiscard]] inline Text utf16(std::u16string_view units) {
  return marked({reinterpret_cast<const char*>(units.data()), units.size() * 2}, kEncodingUTF16);
}
[[nodiscard]] inline Text utf32(std::u32string_view units) {
  return marked({reinterpret_cast<const char*>(units.data()), units.size() * 4}, kEncodingUTF32);
}

/// A memory block, or nil.
struct Block {
  std::string bytes;
  bool nil = false;
  std::size_t stretchedTo = 0;  ///< as of a text

  bool operator==(const Block&) const = default;
};

[[nodiscard]] inline Block block(std::string_view bytes) { return {std::string(bytes), false}; }
[[nodiscard]] inline Block nilBlock() { return {{}, true}; }

using Argument = std::variant<Text, Block, std::int32_t, double, bool>;
using Result = std::variant<Text, std::int64_t, double, bool, Block>;

/// An exception the plugin raised.
struct Raised {
  std::string className;
  std::string message;
  std::int64_t errorNumber = -1;  ///< -1: never set

  bool operator==(const Raised&) const = default;
};

/// A service called during a call.
struct ServiceCall {
  std::string service;                   ///< the name it is looked up under
  std::string thing;                     ///< what it was asked about: "argument 1", "result", "string 1"; may be empty
  std::string made;                      ///< what it handed out, named likewise
  std::optional<TextEncoding> encoding;  ///< asked for, or given to what was made
};

/// What one call did.
struct Outcome {
  Result result;
  int sameAsArgument = -1;              ///< index of the argument whose very handle came back
  std::optional<Raised> exception;      ///< the last one raised
  std::vector<std::string> services;    ///< services called, in order
  std::vector<ServiceCall> calls;       ///< the same services, with what they were asked for
  std::vector<std::string> lookups;     ///< names looked up, in order, and declarations of global methods
  std::vector<std::string> violations;  ///< what was leaked, released twice or otherwise wrongly done
  bool balanced = true;                 ///< no violations: every reference and record is accounted for

  /// The result by its type; another type than the method's own throws `std::bad_variant_access`.
  [[nodiscard]] const Text& text() const { return std::get<Text>(result); }
  [[nodiscard]] std::int64_t integer() const { return std::get<std::int64_t>(result); }
  [[nodiscard]] double number() const { return std::get<double>(result); }
  [[nodiscard]] bool boolean() const { return std::get<bool>(result); }
  [[nodiscard]] const Block& block() const { return std::get<Block>(result); }
};

}  // namespace standin
