/// The quoted-printable encoder: escapes, line limit and held-back blanks.
#pragma once

#include <array>
#include <cstdint>

#include "codecs/quoted_printable.h"

/// The state of one encoding.
class EncodeData {
 public:
  /// Ends every line of the output.
  static constexpr std::array<std::uint8_t, 2> line_break = {'\r', '\n'};

  /// The longest text for that many bytes, whatever the line limit: each one escaped on a line of its own.
  [[nodiscard]] static constexpr std::int64_t sizeBound(std::int64_t byteCount) noexcept {
    return kMaxPerByte * byteCount + kClosingSize;
  }

  /// @param lineLimit  below 2 it is 72
  EncodeData(ByteView input, std::int32_t lineLimit) noexcept
      : input_(input), lineLimit_(lineLimit > 1 ? lineLimit : quoted_printable::kDefaultLineLimit) {}

  /// Writes the encoded text. For an object that has done nothing yet.
  /// @return false when it would exceed 2^31 - 1 bytes or memory is short
  [[nodiscard]] bool encodeTo(OutputBuffer& output) noexcept;

  /// The length of the encoded text, found by encoding it. For an object that has done nothing yet.
  [[nodiscard]] std::int64_t measure() noexcept;

 private:
  static constexpr std::int64_t kMaxPerByte = 6;   ///< an escape and the soft break before it
  static constexpr std::int64_t kClosingSize = 9;  ///< a held-back blank and a soft break, with a soft break before
  static constexpr std::size_t kStepSize = 512;    ///< input bytes taken at once; whole vectors

  [[nodiscard]] std::int64_t stepRoom() const noexcept;
  [[nodiscard]] bool atLineBreak() const noexcept;
  void step() noexcept;
  void encodeLineBreaks(std::size_t end) noexcept;
  void close() noexcept;

  void emit_literally(std::uint8_t byte) noexcept;
  void emit_hex_encoded(std::uint8_t byte) noexcept;
  void output_line_break() noexcept;
  void softBreak() noexcept;
  void emitText(const std::uint8_t* text, std::int64_t size) noexcept;
  void emitInNarrowLines(const std::uint8_t* text, std::int64_t size) noexcept;

  std::uint8_t* out_ = nullptr;  ///< where the output goes on
  ByteView input_;
  std::size_t position_ = 0;  ///< of the next input byte
  std::int64_t lineLimit_;
  std::int64_t column_ = 0;    ///< characters in the current output line
  std::uint8_t heldBack_ = 0;  ///< the blank that waits for what follows it, or 0
  bool hadLineBreak_ = false;
};
