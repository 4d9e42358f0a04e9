#include "codecs/quoted_printable_encoder.h"

#include <algorithm>
#include <cstring>

#include "codecs/hex_escapes.h"

using quoted_printable::isBlank;
using quoted_printable::isLineBreak;

namespace {

/// Bytes of text that are copied at once.
constexpr std::int64_t kCopied = 32;

/// Copies in blocks, so that it touches up to `kCopied` bytes more on both sides.
std::uint8_t* appendBlocks(std::uint8_t* out, const std::uint8_t* text, std::int64_t size) noexcept {
  for (std::int64_t i = 0; i < size; i += kCopied) std::memcpy(out + i, text + i, kCopied);
  return out + size;
}

}  // namespace

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
  return kMaxPerByte * (taken + 1) + kCopied;
}

bool EncodeData::atLineBreak() const noexcept { return position_ != input_.size() && isLineBreak(input_[position_]); }

/// Encodes some bytes, those of one line at most, and the line breaks after them. Escapes come first, into a block of
/// their own; then it is known where lines end.
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
  if (position_ < end && atLineBreak()) encodeLineBreaks(end);
}

/// @param end  where the step ends; a pair may reach one byte beyond
void EncodeData::encodeLineBreaks(std::size_t end) noexcept {
  if (heldBack_ != 0) emit_hex_encoded(heldBack_);
  heldBack_ = 0;
  const std::uint8_t* const inputEnd = input_.data() + input_.size();
  const std::uint8_t* const stop = input_.data() + std::min(input_.size(), end);
  const std::uint8_t* in = input_.data() + position_;
  while (in < stop && isLineBreak(*in)) {
    const std::uint8_t first = *in;
    for (; in < stop && *in == first; ++in) output_line_break();
    if (in != inputEnd && *in == quoted_printable::otherLineBreak(first)) ++in;  // pairs with the last one
  }
  position_ = static_cast<std::size_t>(in - input_.data());
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
  out_ = std::copy(line_break.begin(), line_break.end(), out_);
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
    out_ = appendBlocks(out_, text, length);
    softBreak();
    text += length;
    size -= length;
  }
  out_ = appendBlocks(out_, text, size);
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
