#include "standin/host_string.h"

#include <cstdio>

namespace standin {
namespace {

// An address nothing lies at, a length and an encoding nobody has.
const auto* const kPoisonedStorage = reinterpret_cast<const std::uint8_t*>(std::uintptr_t{16});
constexpr std::int32_t kPoison = 0x5A5A5A5A;

}  // namespace

HostString::HostString(std::string_view bytes, TextEncoding mark, const Contents::Layout& layout, bool readable)
    : REALstringStruct{kPoison, kPoisonedStorage, kPoison, kPoison, TextEncoding{kPoison}},
      Counted(Kind::kString),
      contents_(bytes, layout),
      ownSize_(bytes.size()),
      mark_(mark),
      readable_(readable) {
  if (!readable_) return;
  storage = contents_.data() - 1;
  length = static_cast<std::int32_t>(contents_.size());
  encoding = mark;
}

void HostString::setMark(TextEncoding mark) noexcept {
  mark_ = mark;
  if (readable_) encoding = mark;
}

void HostString::dissolve() noexcept {
  contents_ = Contents();
  storage = kPoisonedStorage;
  length = kPoison;
}

std::string HostString::description() const {
  char text[64];
  std::snprintf(text, sizeof text, "string of %zu bytes in encoding 0x%X", contents_.size(),
                static_cast<unsigned>(mark_));
  return text;
}

}  // namespace standin
