#include "codecs/quoted_printable_encoder.h"

#include <algorithm>
#include <cstring>

#include "codecs/hex_escapes.h"

using quoted_printable::isBlank;
using quoted_printable::isLineBreak;

bool EncodeData::encodeTo(OutputBuffer& output) noexcept {
  constexpr std::int64_t kReserved = 1024;
  out_ = output.begin();
  const std::int64_t expected = std::ssize(input_) + kReserved;
  if (expected > 2 * kReserved && !output.makeRoom(out_, expected)) return false;
  while (position_ != input_.size()) {
    if (!output.makeRoom(out_, stepRoom())) return false;
    step();
  }
  if (!output.makeRoom(out_, kClosingSize)) return false;
  close();
  return output.finish(out_);
}

std::int64_t EncodeData::measure() noexcept {
  std::uint8_t window[kMaxPerByte * (kStepSize + 2) + kClosingSize + kCopied];
  std::int64_t size = 0;
  while (position_ != input_.size()) {
    out_ = window;
    step();
    size += out_ - window;
  }
  out_ = window;
  close();
  return size + (out_ - window);
}

/// What one step may write or touch: a blank from the step before comes with its own bytes, and a line break may
/// reach one byte beyond the step.
std::int64_t EncodeData::stepRoom() const noexcept {
  const auto taken = static_cast<std::int64_t>(std::min(input_.size() - position_, kStepSize + 1));
  return kMaxPerByte * (taken + 1) + static_cast<std::int64_t>(kCopied);
}

bool EncodeData::atLineBreak() const noexcept { return position_ != input_.size() && isLineBreak(input_[position_]); }

/// Encodes some bytes, a line at most, and the line breaks after them.
void EncodeData::step() noexcept {
  constexpr std::size_t kGuard = 2;  // `emitText` looks back that far
  std::uint8_t block[kGuard + 3 * kStepSize + quoted_printable::kEscapeMargin];
  std::uint8_t* const text = block + kGuard;
  std::fill_n(block, kGuard, std::uint8_t{0});

  const std::size_t end = position_ + kStepSize;
  const ByteView rest = input_.subspan(position_);
  const quoted_printable::Progress done = quoted_printable::escape(rest, kStepSize, text);
  if (done.out != text) {
    if (heldBack_ != 0) emit_literally(heldBack_);
    heldBack_ = isBlank(done.out[-1]) ? done.out[-1] : std::uint8_t{0};
    emitText(text, done.out - text - (heldBack_ != 0));
    position_ += static_cast<std::size_t>(done.in - rest.data());
  }
  while (position_ < end && atLineBreak()) encodeLineBreak();
}

void EncodeData::encodeLineBreak() noexcept {
  if (heldBack_ != 0) emit_hex_encoded(heldBack_);
  heldBack_ = 0;
  const ByteView rest = input_.subspan(position_);
  position_ +=
      static_cast<std::size_t>(quoted_printable::lineBreakEnd(rest.data(), rest.data() + rest.size()) - rest.data());
  output_line_break();
  hadLineBreak_ = true;
}

void EncodeData::close() noexcept {
  if (heldBack_ != 0) emit_literally(heldBack_);
  if (hadLineBreak_ && column_ > 0) softBreak();
}

void EncodeData::emit_literally(std::uint8_t byte) noexcept {
  if (column_ + 1 >= lineLimit_ - 1) softBreak();
  *out_++ = byte;
  ++column_;
}

void EncodeData::emit_hex_encoded(std::uint8_t byte) noexcept {
  const EscapedByte escape = hexEscape(byte);
  if (column_ + escape.length >= lineLimit_ - 1) softBreak();
  out_ = std::copy_n(escape.text.data(), escape.length, out_);
  column_ += escape.length;
}

void EncodeData::output_line_break() noexcept {
  out_ = std::ranges::copy(line_break, out_).out;
  column_ = 0;
}

void EncodeData::softBreak() noexcept {
  *out_++ = '=';
  output_line_break();
}

/// Writes text with its escapes, broken into lines, as if character by character and escape by escape. An "=" in it
/// always opens an escape: whether the end of a line would cut one shows in the two characters before.
/// @param text  with two bytes before it that are no "=", and `kCopied` readable bytes behind it
void EncodeData::emitText(const std::uint8_t* text, std::int64_t size) noexcept {
  const std::int64_t capacity = lineLimit_ - 2;
  if (capacity < 3) return emitInNarrowLines(text, size);
  for (std::int64_t room = capacity - column_; size > room; room = capacity) {
    const std::int64_t length = room - (text[room - 1] == '=' ? 1 : 0) - (text[room - 2] == '=' ? 2 : 0);
    copyText(text, length);
    softBreak();
    text += length;
    size -= length;
  }
  copyText(text, size);
  column_ += size;
}

/// Writes text with its escapes where the limit is too small for an escape, which then has a line of its own.
void EncodeData::emitInNarrowLines(const std::uint8_t* text, std::int64_t size) noexcept {
  const std::uint8_t* const end = text + size;
  while (text != end) {
    if (*text != '=') {
      emit_literally(*text++);
    } else {
      emit_hex_encoded(hexByte(text[1], text[2]));
      text += 3;
    }
  }
}

/// Copies in blocks, so that it touches up to `kCopied` bytes more.
void EncodeData::copyText(const std::uint8_t* text, std::int64_t size) noexcept {
  for (std::int64_t i = 0; i < size; i += static_cast<std::int64_t>(kCopied)) std::memcpy(out_ + i, text + i, kCopied);
  out_ += size;
}
