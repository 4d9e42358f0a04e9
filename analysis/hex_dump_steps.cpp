/// What of a hex dump is repeated, for the wide forms.
#include "analysis/hex_dump_steps.h"

#include <algorithm>

namespace {

using hex_dump::Layout;
using hex_dump::Repeat;
using hex_dump::Steps;

/// A text shorter than that would be repeated too often; one longer isn't worth laying out.
constexpr std::int64_t kMinRepeated = 48;
constexpr std::int64_t kMaxRepeated = Steps::kMaxSize / 2;

/// True while a text has to be added once more: it is short, or ends within a byte.
bool isToBeContinued(const Steps& steps) noexcept { return steps.size() < kMinRepeated || steps.digitCount() % 2 != 0; }

Steps stepsOfLines(const Layout& layout) noexcept {
  Steps steps;
  do {
    steps.addText(layout.lineStart);
    steps.addDigits(layout.groupDigits);
    for (std::int64_t group = 1; group < layout.lineGroups; ++group) {
      steps.addText(layout.spacer);
      steps.addDigits(layout.groupDigits);
    }
    steps.addText(layout.lineEnd);
  } while (isToBeContinued(steps));
  return steps;
}

Steps stepsOfGroups(const Layout& layout) noexcept {
  Steps steps;
  do {
    steps.addDigits(layout.groupDigits);
    steps.addText(layout.spacer);
  } while (isToBeContinued(steps));
  return steps;
}

/// How often a text can be written without touching a byte beyond the spans.
std::int64_t fitting(const Steps& steps, ByteView bytes, ByteSpan text) noexcept {
  const std::int64_t bytesSpare = std::ssize(bytes) - steps.bytesTouched();
  const std::int64_t textSpare = std::ssize(text) - steps.textTouched();
  if (bytesSpare < 0 || textSpare < 0) return 0;
  return std::min(bytesSpare / (steps.digitCount() / 2), textSpare / steps.size()) + 1;
}

template <typename Byte>
std::span<Byte> after(std::int64_t count, std::span<Byte> bytes) noexcept {
  return bytes.subspan(static_cast<std::size_t>(count));
}

void writeShortLines(ByteView bytes, const Layout& layout, ByteSpan text, Repeat repeat) noexcept {
  const Steps steps = stepsOfLines(layout);
  const std::int64_t times = fitting(steps, bytes, text);
  repeat(steps, times, bytes.data(), text.data());
  hex_dump::scalar::write(after(times * steps.digitCount() / 2, bytes), layout, after(times * steps.size(), text));
}

/// Writes one line of whole bytes. The last group, which no spacer follows, and what shares it with fill is left to
/// the scalar form, as the line that it would be: it has the byte that is withheld here.
void writeLongLine(const Steps& steps, ByteView bytes, const Layout& layout, ByteSpan text, Repeat repeat) noexcept {
  const std::int64_t stepsGroups = steps.digitCount() / layout.groupDigits;
  std::copy(layout.lineStart.begin(), layout.lineStart.end(), text.begin());
  const ByteSpan groups = text.subspan(layout.lineStart.size());
  const std::int64_t times = fitting(steps, bytes.first(bytes.size() - 1), groups);
  repeat(steps, times, bytes.data(), groups.data());
  Layout rest = layout;
  rest.lineStart = {};
  rest.lineGroups -= times * stepsGroups;
  hex_dump::scalar::write(after(times * steps.digitCount() / 2, bytes), rest, after(times * steps.size(), groups));
}

void writeLongLines(ByteView bytes, const Layout& layout, ByteSpan text, Repeat repeat) noexcept {
  const Steps steps = stepsOfGroups(layout);
  const auto lineBytes = static_cast<std::size_t>(layout.lineDigits() / 2);
  const auto lineText = static_cast<std::size_t>(hex_dump::lineSize(layout));
  for (; bytes.size() > lineBytes; bytes = bytes.subspan(lineBytes), text = text.subspan(lineText)) {
    writeLongLine(steps, bytes.first(lineBytes), layout, text.first(lineText), repeat);
  }
  writeLongLine(steps, bytes, layout, text, repeat);
}

}  // namespace

void hex_dump::writeRepeated(ByteView bytes, const Layout& layout, ByteSpan text, Repeat repeat) noexcept {
  if (lineSize(layout) <= kMaxRepeated) {
    writeShortLines(bytes, layout, text, repeat);
  } else if (layout.groupDigits + std::ssize(layout.spacer) <= kMaxRepeated && layout.lineDigits() % 2 == 0) {
    writeLongLines(bytes, layout, text, repeat);
  } else {
    scalar::write(bytes, layout, text);
  }
}
