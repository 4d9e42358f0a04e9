#include "standin/contents.h"

#include <cstring>

namespace standin {

void Contents::reserve(std::size_t size, const Layout& layout) {
  // The allocator's own alignment, kept by a whole multiple of it in front.
  constexpr std::size_t kFront = alignof(std::max_align_t);
  size_ = size;
  if (layout.checking) {
    guarded_ = std::make_unique<GuardedMemory>(size + layout.tail);
    data_ = guarded_->data();
    // Parity is had at the price of one more byte before the page.
    const bool isOdd = (reinterpret_cast<std::uintptr_t>(data_) & 1U) != 0;
    if (layout.odd && !isOdd) --data_;
  } else {
    const std::size_t front = kFront + (layout.odd ? 1 : 0);
    plain_.reset(new std::uint8_t[front + size + layout.tail]);
    data_ = plain_.get() + front;
  }
  std::memset(data_ + size, layout.tailByte, layout.tail);
}

void Contents::stretch(std::string_view bytes, const Layout& layout) {
  size_ = layout.stretchedTo;
  repeated_ = std::make_unique<RepeatedMemory>(bytes, size_, layout.tail);
  data_ = repeated_->data();
  std::memset(data_ + size_, layout.tailByte, layout.tail);
}

Contents::Contents(std::size_t size, const Layout& layout) {
  reserve(size, layout);
  std::memset(data_, 0, size);
}

Contents::Contents(std::string_view bytes, const Layout& layout) {
  if (layout.stretchedTo > bytes.size()) {
    stretch(bytes, layout);
    return;
  }
  reserve(bytes.size(), layout);
  if (!bytes.empty()) std::memcpy(data_, bytes.data(), bytes.size());
  if (guarded_) guarded_->seal();
}

}  // namespace standin
