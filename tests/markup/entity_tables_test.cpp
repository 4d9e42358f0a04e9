#include "markup/entity_tables.h"

#include "markup/entity_lookup.h"
#include "tests/reference/markup.h"
#include "tests/support/kernels.h"

namespace {

struct Known {
  char32_t code;
  const char* name;
};

constexpr Known kKnown[] = {{0x22, "quot"},     {0xA0, "nbsp"},     {0xFF, "yuml"},    {0x152, "OElig"},
                            {0x3A1, "Rho"},     {0x3A3, "Sigma"},   {0x3C2, "sigmaf"}, {0x3D1, "thetasym"},
                            {0x2020, "dagger"}, {0x2021, "Dagger"}, {0x20AC, "euro"},  {0x21D4, "hArr"},
                            {0x222B, "int"},    {0x2329, "lang"},   {0x2663, "clubs"}, {0x2666, "diams"}};

entities::PackedName packed(std::string_view name) { return entities::packedName(std::string(name).c_str()); }

/// Tries a pair of lookups on every code point up to the last entity's, and every name.
template <typename PositionOf, typename CodeOf>
void findsEverything(PositionOf positionOf, CodeOf codeOf) {
  for (char32_t code = 0; code <= 0x2700; ++code) {
    const EscapeCode* const entity = reference::entityOf(code);
    const std::size_t position = entities::mayHaveRecord(code) ? positionOf(code) : entities::kCount;
    const bool found = position < entities::kCount && entities::kCodes[position] == code;
    REQUIRE(found == (entity != nullptr));
    if (found) REQUIRE(&escapecodes[position] == entity);
    if (found) REQUIRE(codeOf(packed(entity->name)) == code);
    if (found) REQUIRE(codeOf(packed(entity->name) | std::uint64_t{'x'} << 56) == 0);
  }
}

}  // namespace

TEST_CASE("entities: known records") {
  for (const Known& known : kKnown) {
    CAPTURE(known.name);
    REQUIRE(reference::entityOf(known.code) != nullptr);
    CHECK(std::string_view(reference::entityOf(known.code)->name) == known.name);
    CHECK(entities::scalar::codeOf(packed(known.name)) == known.code);
  }
}

TEST_CASE("entities: every form of the lookups finds every record and nothing else") {
  IN_EVERY_FORM(entities, findsEverything(form::positionOf, form::codeOf));
}
