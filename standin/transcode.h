/// Conversion of text between the host's encodings.
///
/// What a text is converted to is always valid in the target encoding; no text makes a conversion fail:
/// - between equal encodings the bytes are handed on as they are, malformed or not;
/// - malformed UTF-8 reads as U+FFFD, one for each maximal subpart (Unicode 15, section 3.9); so does a byte of
///   0x80 or above in ASCII;
/// - an unpaired surrogate, a UTF-32 unit in the surrogate range and trailing bytes that fill no unit are dropped;
///   a UTF-32 unit above 0x10FFFF reads as U+FFFD;
/// - UTF-16 and UTF-32 are in the processor's byte order, except that a text beginning with a reversed byte-order
///   mark is read in the other order; a byte-order mark is a character like any other and stays;
/// - bytes without an encoding read as Mac Roman, in which every byte is a character;
/// - a character the target cannot represent becomes "?".
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/encodings.h"

namespace standin {

/// True for the seven encodings this host converts from and to.
[[nodiscard]] bool isKnown(TextEncoding encoding) noexcept;

/// Bytes of one code unit.
[[nodiscard]] int unitSize(TextEncoding encoding) noexcept;

/// The text of `bytes`, in `from`, as bytes in `to`; nothing where one of the encodings is unknown.
/// Towards `kEncodingNone` the bytes stay what they are.
[[nodiscard]] std::optional<std::string> transcode(std::string_view bytes, TextEncoding from, TextEncoding to);

/// Reverses the bytes of every unit, in place.
void reverseUnits(std::string& bytes, int bytesPerUnit) noexcept;

}  // namespace standin
