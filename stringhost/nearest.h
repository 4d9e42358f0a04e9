/// What somebody may have meant by a name that doesn't exist.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace stringhost {

/// "did you mean X?" for the candidate that takes the fewest edits, case aside, or the one that begins or ends like
/// the name; empty where none is near.
[[nodiscard]] std::string hintFor(std::string_view name, const std::vector<std::string>& candidates);

}  // namespace stringhost
