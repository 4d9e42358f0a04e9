/// Command lines as a shell reads them, as far as examples go.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace stringhost {

/// Splits at blanks; '…', "…" and \ quote as in sh. Nothing where a quotation isn't closed.
[[nodiscard]] std::optional<std::vector<std::string>> shellWords(std::string_view line);

}  // namespace stringhost
