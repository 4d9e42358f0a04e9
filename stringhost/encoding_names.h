/// The encodings by the names the command line knows them under.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "host/encodings.h"

namespace stringhost {

struct EncodingName {
  const char* name;
  TextEncoding encoding;
};

inline constexpr std::array<EncodingName, 7> kEncodingNames = {{
    {"utf-8", kEncodingUTF8},
    {"ascii", kEncodingASCII},
    {"utf-16", kEncodingUTF16},
    {"utf-32", kEncodingUTF32},
    {"macroman", kEncodingMacRoman},
    {"windows-1252", kEncodingWindowsLatin1},
    {"none", kEncodingNone},
}};

/// Null for an encoding without a name.
[[nodiscard]] constexpr const char* nameOf(TextEncoding encoding) noexcept {
  for (const EncodingName& row : kEncodingNames) {
    if (row.encoding == encoding) return row.name;
  }
  return nullptr;
}

}  // namespace stringhost
