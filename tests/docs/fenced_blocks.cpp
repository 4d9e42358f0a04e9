#include "tests/docs/fenced_blocks.h"

namespace docs {

Page readPage(std::string_view markdown) {
  constexpr std::string_view kFence = "```";
  constexpr std::string_view kHeading = "## ";
  Page page;
  std::string heading;
  bool isInBlock = false;
  for (int number = 1; !markdown.empty(); ++number) {
    const std::size_t end = markdown.find('\n');
    const std::string_view text = markdown.substr(0, end);
    markdown.remove_prefix(end == std::string_view::npos ? markdown.size() : end + 1);
    if (text.starts_with(kFence)) {
      if (!isInBlock) page.blocks.push_back({std::string(text.substr(kFence.size())), heading, {}});
      isInBlock = !isInBlock;
    } else if (isInBlock) {
      page.blocks.back().lines.push_back({number, std::string(text)});
    } else if (text.starts_with(kHeading)) {
      heading = text.substr(kHeading.size());
      page.headings.push_back({number, heading});
    } else if (!text.empty()) {
      page.prose[heading].emplace_back(text);
    }
  }
  return page;
}

}  // namespace docs
