/// Dump text that repeats, laid out once so that 16 bytes of it can be written at a time.
#pragma once

#include <algorithm>
#include <array>

#include "analysis/hex_dump.h"

namespace hex_dump {

/// 16 bytes of text: digits of the 8 bytes from some place on, and what stands between them.
struct Step {
  static constexpr std::int64_t kBytesRead = 8;
  static constexpr std::int64_t kTextSize = 16;
  static constexpr std::uint8_t kNoDigit = 0x80;

  std::int64_t in;                          ///< the first of the 8 bytes
  std::int64_t out;                         ///< where the text goes
  std::array<std::uint8_t, 16> digitIndex;  ///< which of the 16 digits stands here, or `kNoDigit`
  std::array<std::uint8_t, 16> fixed;       ///< what else stands here, or 0
};

/// The steps that write a piece of text, built from its front. What a step writes beyond its share is overwritten by
/// the next one.
class Steps {
 public:
  /// The longest text that can be built.
  static constexpr std::int64_t kMaxSize = 512;

  /// The length of the text, and how many digits are in it.
  [[nodiscard]] std::int64_t size() const noexcept { return size_; }
  [[nodiscard]] std::int64_t digitCount() const noexcept { return digits_; }

  [[nodiscard]] const Step* begin() const noexcept { return steps_; }
  [[nodiscard]] const Step* end() const noexcept { return steps_ + count_; }

  /// How many bytes are read, and how much text is written, in the course of it.
  [[nodiscard]] std::int64_t bytesTouched() const noexcept { return end()[-1].in + Step::kBytesRead; }
  [[nodiscard]] std::int64_t textTouched() const noexcept { return end()[-1].out + Step::kTextSize; }

  void addText(ByteView text) noexcept {
    for (const std::uint8_t byte : text) {
      if (isFull()) startStep();
      steps_[count_ - 1].fixed[position()] = byte;
      ++size_;
    }
  }

  void addDigits(std::int64_t count) noexcept {
    for (; count > 0; --count) {
      if (isFull() || digitIndex() == 2 * Step::kBytesRead) startStep();
      steps_[count_ - 1].digitIndex[position()] = static_cast<std::uint8_t>(digitIndex());
      ++digits_;
      ++size_;
    }
  }

 private:
  /// A step ends for want of digits after 15 of them at the earliest.
  static constexpr int kMaxCount = kMaxSize / 15 + 1;

  [[nodiscard]] bool isFull() const noexcept {
    return count_ == 0 || size_ - steps_[count_ - 1].out == Step::kTextSize;
  }
  [[nodiscard]] std::size_t position() const noexcept {
    return static_cast<std::size_t>(size_ - steps_[count_ - 1].out);
  }
  [[nodiscard]] std::int64_t digitIndex() const noexcept { return digits_ - 2 * steps_[count_ - 1].in; }

  void startStep() noexcept {
    Step& step = steps_[count_++];
    step.in = digits_ / 2;
    step.out = size_;
    step.digitIndex.fill(Step::kNoDigit);
    step.fixed.fill(0);
  }

  std::int64_t size_ = 0;
  std::int64_t digits_ = 0;
  int count_ = 0;
  Step steps_[kMaxCount];
};

/// Writes the text that steps make so many times, each time with the next digits.
using Repeat = void (*)(const Steps& steps, std::int64_t times, const std::uint8_t* in, std::uint8_t* out) noexcept;

/// Writes a dump by one form of the repeating. Lines or groups that aren't worth laying out are left to the plain form.
void writeRepeated(ByteView bytes, const Layout& layout, ByteSpan text, Repeat repeat) noexcept;

}  // namespace hex_dump
