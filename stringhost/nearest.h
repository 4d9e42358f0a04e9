/// What somebody may have meant by a name that doesn't exist.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace stringhost {

/// Whether two names are the same in the host's language, where case doesn't matter.
[[nodiscard]] bool isSameName(std::string_view a, std::string_view b);

/// "did you mean X?" for the candidate that takes the fewest edits, case aside, or where that is too many, the one that
/// shares the most pairs of adjacent letters with the name, the shortest of several; empty where none is near.
[[nodiscard]] std::string hintFor(std::string_view name, const std::vector<std::string>& candidates);

/// Throws the `UsageError` for something that doesn't exist, with the nearest one as its hint.
/// @param what       "method", "service" and the like
/// @param otherwise  the hint where none is near
[[noreturn]] void refuseUnknown(const std::string& what, const std::string& name,
                                const std::vector<std::string>& candidates, const std::string& otherwise = {});

}  // namespace stringhost
