/// Whether the reference documents what is registered, and nothing else.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/docs/fenced_blocks.h"

namespace docs {

/// Compares declarations. A method's section is headed by its name, and its first "xojo" block declares its overloads,
/// a line each.
/// @param pages       by name
/// @param registered  every declaration the plugin registers
/// @return a line for each difference
[[nodiscard]] std::vector<std::string> differences(const std::map<std::string, Page>& pages,
                                                   const std::vector<std::string>& registered);

}  // namespace docs
