/// How results are printed.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

#include "standin/declaration.h"
#include "standin/values.h"

namespace stringhost {

enum class Form {
  kText,  ///< the bare result; on a terminal made readable, with a line break
  kHex,   ///< strings and memory blocks as hex digits
  kJson,  ///< everything there is to know, in one line
  kRaw,   ///< the bare result, on a terminal too
};

/// Two upper-case digits a byte.
[[nodiscard]] std::string hexDigits(std::string_view bytes);

/// Prints what a call gave back. An empty result prints nothing.
void print(std::ostream& out, const standin::Outcome& outcome, standin::Type type, Form form, bool terminal);

}  // namespace stringhost
