/// What a call has to give, computed the plain way.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "standin/values.h"

namespace fuzz {

struct Trial;

using Result = std::variant<standin::Text, std::int64_t, double, bool, standin::Block>;

struct Expectation {
  std::optional<Result> result = {};          ///< none where the call may give anything
  bool sameArgument = false;                  ///< the first argument itself comes back
  std::optional<std::string> exception = {};  ///< the class of the one that is raised
};

/// @param outcome  what the call gave, for methods that are tested by a property of their result
[[nodiscard]] Expectation expectationOf(const Trial& trial, const standin::Outcome& outcome);

}  // namespace fuzz
