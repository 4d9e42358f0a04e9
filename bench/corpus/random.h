/// The one source of chance in the corpora: seeded, and the same everywhere (xorshift64*, Vigna 2016).
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

class Random {
 public:
  explicit Random(std::uint64_t seed) noexcept : state_(seed * 0x9E37'79B9'7F4A'7C15 + 1) {}

  std::uint64_t next() noexcept {
    state_ ^= state_ >> 12;
    state_ ^= state_ << 25;
    state_ ^= state_ >> 27;
    return (state_ * 0x2545'F491'4F6C'DD1D) >> 16;
  }

  /// A number below `bound`.
  std::size_t below(std::size_t bound) noexcept { return static_cast<std::size_t>(next()) % bound; }

  /// True once in `period` times.
  bool oneIn(std::size_t period) noexcept { return below(period) == 0; }

  template <typename Item>
  const Item& pick(std::span<const Item> items) noexcept {
    return items[below(items.size())];
  }

  template <typename Item, std::size_t count>
  const Item& pick(const Item (&items)[count]) noexcept {
    return items[below(count)];
  }

 private:
  std::uint64_t state_;
};
