/// What a terminal may be shown: text that neither moves the cursor nor changes how other text looks.
#pragma once

#include <string>
#include <string_view>

namespace stringhost {

/// Whether a terminal shows the text without side effects: line ends and tabs aside there are no control characters
/// (C0, DEL, C1), and none that turn the direction of the text, break lines or are not seen at all.
/// @param utf8  well-formed
[[nodiscard]] bool isPrintable(std::string_view utf8);

/// The text in one line, what is not printable as \uXXXX, which JSON takes for the same; ill-formed bytes become
/// U+FFFD.
[[nodiscard]] std::string visible(std::string_view utf8);

}  // namespace stringhost
