#include "standin/contents.h"

#include <cstring>

namespace standin {

Contents::Contents(std::size_t size, const Layout& layout) : size_(size) {
  // The allocator's own alignment, kept by a whole multiple of it in front.
  constexpr std::size_t kFront = alignof(std::max_align_t);
  if (layout.checking) {
    guarded_ = std::make_unique<GuardedMemory>(size + layout.tail);
    data_ = guarded_->data();
    // Parity is had at the price of one more byte before the page.
    const bool isOdd = (reinterpret_cast<std::uintptr_t>(data_) & 1U) != 0;
    if (layout.odd && !isOdd) --data_;
  } else {
    plain_ = std::make_unique<std::uint8_t[]>(kFront + (layout.odd ? 1 : 0) + size + layout.tail);
    data_ = plain_.get() + kFront + (layout.odd ? 1 : 0);
  }
  std::memset(data_ + size, layout.tailByte, layout.tail);
}

Contents::Contents(std::string_view bytes, const Layout& layout) : Contents(bytes.size(), layout) {
  if (!bytes.empty()) std::memcpy(data_, bytes.data(), bytes.size());
  if (guarded_) guarded_->seal();
}

}  // namespace standin
