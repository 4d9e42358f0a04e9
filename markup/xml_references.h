/// The references that the XML encoder writes, ready to be stored.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "markup/entity_tables.h"
#include "markup/xml_encoder.h"

namespace xml {

/// "&", the name, ";" in 32-bit units, and how many bytes that is. Stored whole; what comes next overwrites the rest.
struct Reference {
  char32_t text[7];
  std::uint32_t byteCount;
};
static_assert(sizeof(Reference) == 32);

/// Writing for one character touches up to this many bytes.
inline constexpr int kReferenceRoom = sizeof(Reference);

/// The references in the order of `escapecodesXML`, and an empty one at the end: for control characters.
using References = std::array<Reference, std::size(escapecodesXML)>;

[[nodiscard]] constexpr References referencesWith(const char* apostrophe) noexcept {
  References references{};
  for (std::size_t i = 0; escapecodesXML[i].code != 0; ++i) {
    const char* const name = escapecodesXML[i].code == '\'' ? apostrophe : escapecodesXML[i].name;
    char32_t* out = references[i].text;
    *out++ = '&';
    for (const char* c = name; *c != 0; ++c) *out++ = static_cast<char32_t>(*c);
    *out++ = ';';
    references[i].byteCount = static_cast<std::uint32_t>(4 * (out - references[i].text));
  }
  return references;
}

inline constexpr References kWithNumber = referencesWith("#39");
inline constexpr References kWithName = referencesWith("apos");

[[nodiscard]] constexpr const References& referencesFor(Apostrophe apostrophe) noexcept {
  return apostrophe == Apostrophe::kName ? kWithName : kWithNumber;
}

/// Writes what stands for a markup character, and nothing for a control character; returns the end.
inline std::uint8_t* writeReference(char32_t character, const References& references, std::uint8_t* out) noexcept {
  std::size_t position = 0;
  while (escapecodesXML[position].code != character && escapecodesXML[position].code != 0) ++position;
  std::memcpy(out, &references[position], sizeof(Reference));
  return out + references[position].byteCount;
}

}  // namespace xml
