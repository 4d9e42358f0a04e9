/// How results are printed.
#pragma once

#include <iosfwd>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

#include "standin/declaration.h"
#include "standin/values.h"

namespace stringhost {

class Timing;

enum class Form {
  kText,  ///< the bare result; on a terminal made readable, with a line break
  kHex,   ///< strings and memory blocks as hex digits
  kJson,  ///< everything there is to know, in one line
  kRaw,   ///< the bare result, on a terminal too
};

/// Two upper-case digits a byte.
[[nodiscard]] std::string hexDigits(std::string_view bytes);

/// "utf-8" and the like; for an encoding without a name its number.
[[nodiscard]] std::string encodingName(TextEncoding encoding);

/// A value in words: its type, size and encoding, and what is in it, cut where it is long.
[[nodiscard]] std::string described(const standin::Argument& value);
[[nodiscard]] std::string described(const standin::Result& value);

/// Whether it is a string or a memory block that is there, as opposed to null and to plain values.
[[nodiscard]] bool isThing(const standin::Result& value);

/// The fields of an argument: type and value, and for bytes hex, encoding, null.
[[nodiscard]] nlohmann::ordered_json jsonOf(const standin::Argument& argument);

/// The fields of a result, as `call` shows them.
[[nodiscard]] nlohmann::ordered_json jsonOf(const standin::Outcome& outcome, standin::Type type);

/// The fields of the times of calls, in whole nanoseconds.
[[nodiscard]] nlohmann::ordered_json jsonOf(const Timing& timing);

/// In one line; what isn't UTF-8 is replaced, and for a terminal what isn't printable is escaped.
[[nodiscard]] std::string dumped(const nlohmann::ordered_json& json, bool terminal);

/// Prints what a call gave back, in any form but json. An empty result prints nothing.
void print(std::ostream& out, const standin::Outcome& outcome, Form form, bool terminal);

}  // namespace stringhost
