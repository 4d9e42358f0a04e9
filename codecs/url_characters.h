/// What percent-encoding writes for each byte.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "codecs/hex_escapes.h"
#include "codecs/url.h"

namespace url {

inline constexpr std::uint8_t kEscape = '%';

/// The text for each byte below 0x80. Space and "+" stand as calls without options have them.
inline constexpr std::array<EscapedByte, 128> escapechars = [] {
  constexpr std::string_view kLiteral = "!*+-.0123456789@ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz";
  std::array<EscapedByte, 128> texts{};
  for (std::size_t value = 0; value < texts.size(); ++value) {
    const auto byte = static_cast<std::uint8_t>(value);
    texts[value] =
        kLiteral.find(static_cast<char>(byte)) != std::string_view::npos ? literal(byte) : hexEscape(byte, kEscape);
  }
  return texts;
}();

/// The bytes as one choice of options writes them.
struct Characters {
  std::array<EscapedByte, 256> written;

  /// The bytes that are not escaped: bit h of entry l stands for the byte with the high nibble h and the low nibble l.
  std::array<std::uint8_t, 16> literalRows;
};

[[nodiscard]] consteval Characters charactersFor(Options options) {
  Characters characters{};
  for (std::size_t byte = 0; byte < 256; ++byte) {
    const auto value = static_cast<std::uint8_t>(byte);
    characters.written[byte] = byte < escapechars.size() ? escapechars[byte] : hexEscape(value, kEscape);
  }
  if (options.writesSpaceAsPlus()) characters.written[' '] = literal('+');
  if (options.escapesPlus()) characters.written['+'] = hexEscape('+', kEscape);
  for (std::size_t byte = 0; byte < escapechars.size(); ++byte) {
    if (characters.written[byte].length != 1) continue;
    std::uint8_t& row = characters.literalRows[byte & 15];
    row = static_cast<std::uint8_t>(row | 1U << (byte >> 4));
  }
  return characters;
}

/// By `Options::index`.
inline constexpr std::array<Characters, 4> kCharacters = {charactersFor(Options(0)), charactersFor(Options(1)),
                                                          charactersFor(Options(2)), charactersFor(Options(3))};

}  // namespace url
