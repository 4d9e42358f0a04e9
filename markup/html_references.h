/// The references that the HTML encoder writes, ready to be stored.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>

#include "markup/decimal_reference.h"
#include "markup/entity_columns.h"

namespace html {

/// "&", the name, ";", and how many bytes that is. Stored whole; what comes next overwrites the rest.
struct Reference {
  char text[15];
  std::uint8_t length;
};
static_assert(sizeof(Reference) == 16 && entities::kLongestName + 2 <= sizeof(Reference::text));

/// Writing for one character touches up to this many bytes.
inline constexpr int kReferenceRoom = sizeof(Reference);
static_assert(markup::kLongestDecimalReference <= kReferenceRoom);

[[nodiscard]] constexpr Reference referenceTo(const EscapeCode& record) {
  Reference reference{};
  reference.text[reference.length++] = '&';
  const char* const name = record.code == '\'' ? "#39" : record.name;  // HTML 4.01 doesn't know "apos"
  for (const char* c = name; *c != 0; ++c) reference.text[reference.length++] = *c;
  reference.text[reference.length++] = ';';
  return reference;
}

/// A column of the entity table: the reference for each record.
inline constexpr auto kReferences = [] {
  std::array<Reference, entities::kCount> references{};
  for (std::size_t i = 0; i < entities::kCount; ++i) references[i] = referenceTo(escapecodes[i]);
  return references;
}();

/// Writes the named reference of a record; returns the end.
inline std::uint8_t* writeNamedReference(std::size_t position, std::uint8_t* out) noexcept {
  const Reference& reference = kReferences[position];
  std::memcpy(out, &reference, sizeof reference);
  return out + reference.length;
}

}  // namespace html
