/// What somebody may have meant by a name that doesn't exist.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace stringhost {

/// Whether two names are the same in the host's language, where case doesn't matter.
[[nodiscard]] bool isSameName(std::string_view a, std::string_view b);

/// "did you mean X?" for the candidate that takes the fewest edits, case aside, or the one that begins or ends like
/// the name; empty where none is near.
[[nodiscard]] std::string hintFor(std::string_view name, const std::vector<std::string>& candidates);

}  // namespace stringhost
