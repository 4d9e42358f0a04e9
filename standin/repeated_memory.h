/// Much address space in little memory: the part of the stand-in host that plays huge strings.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace standin {

/// Bytes over and over. All repetitions are the same few pages of memory; where one is written to, its page is copied.
class RepeatedMemory {
 public:
  /// True where the platform can map the same memory often enough for 2^31 bytes.
  [[nodiscard]] static bool isOffered() noexcept;

  /// `size` bytes and at least `tail` more that can be written. Throws `std::bad_alloc` where it can't be had.
  RepeatedMemory(std::string_view bytes, std::size_t size, std::size_t tail);
  ~RepeatedMemory();
  RepeatedMemory(const RepeatedMemory&) = delete;
  RepeatedMemory& operator=(const RepeatedMemory&) = delete;

  /// The first byte. The byte before it can be read, too.
  [[nodiscard]] std::uint8_t* data() const noexcept { return data_; }

 private:
  void* region_ = nullptr;
  std::size_t regionSize_ = 0;
  std::uint8_t* data_ = nullptr;
};

}  // namespace standin
