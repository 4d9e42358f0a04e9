/// Whether all entries of the reference have the same parts.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/docs/fenced_blocks.h"

namespace docs {

/// Looks into each section with a declaration for what an entry has: the labels in their order, a row for each
/// parameter with its default, three examples of its own or more, one of them beyond ASCII where it takes text, and for
/// each of the other languages an example or the words that there is no near function.
/// @param pages  by name
/// @return a line for each part that is missing
[[nodiscard]] std::vector<std::string> missingParts(const std::map<std::string, Page>& pages);

/// The line that tells what a method does: the first one of its section.
[[nodiscard]] std::string summaryOf(const Page& page, const std::string& method);

}  // namespace docs
