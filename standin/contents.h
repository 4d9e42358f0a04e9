/// The bytes behind a string, a memory block or a converted form, laid out as the host was asked to.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "standin/guard_pages.h"
#include "standin/repeated_memory.h"

namespace standin {

class Contents {
 public:
  struct Layout {
    std::size_t tail = 0;         ///< bytes that may be read after the contents
    std::uint8_t tailByte = 0;    ///< what they hold
    bool odd = false;             ///< contents at an odd address, else at one that suits every unit
    bool checking = false;        ///< what follows the tail faults
    std::size_t stretchedTo = 0;  ///< above the number of bytes: they go on repeating up to so many; not checked then
  };

  /// Nothing: no bytes, no address.
  Contents() noexcept = default;

  /// `size` zero bytes. Throws `std::bad_alloc`.
  Contents(std::size_t size, const Layout& layout);

  /// A copy of `bytes` that stays as it is: in checking mode writing faults.
  Contents(std::string_view bytes, const Layout& layout);

  /// The first byte. The byte before it can be read, too.
  [[nodiscard]] std::uint8_t* data() const noexcept { return data_; }
  [[nodiscard]] std::size_t size() const noexcept { return size_; }
  [[nodiscard]] std::string_view view() const noexcept { return {reinterpret_cast<const char*>(data_), size_}; }

 private:
  void reserve(std::size_t size, const Layout& layout);
  void stretch(std::string_view bytes, const Layout& layout);

  std::unique_ptr<std::uint8_t[]> plain_;
  std::unique_ptr<GuardedMemory> guarded_;
  std::unique_ptr<RepeatedMemory> repeated_;
  std::uint8_t* data_ = nullptr;
  std::size_t size_ = 0;
};

}  // namespace standin
