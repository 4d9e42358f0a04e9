/// The reference, as it was when this program was built: an entry per method.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace stringhost {

/// Every page, in Markdown.
[[nodiscard]] const std::vector<std::string_view>& referencePages();

/// What the pages say about one method. The views last as long as the program.
struct Entry {
  std::string_view name;
  std::vector<std::string_view> declarations;  ///< of all overloads
  std::string_view text;                       ///< Markdown, without the heading
};

/// All entries, in the order of the pages: the sections of the second level.
[[nodiscard]] std::vector<Entry> referenceEntries();

/// An entry, made readable: code indented, tables as columns, no marks. With `coloured` names stand out.
[[nodiscard]] std::string rendered(const Entry& entry, bool coloured);

}  // namespace stringhost
