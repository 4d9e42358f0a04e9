/// The limits of the buffers.
#include <doctest/doctest.h>

#include "memory/heap_units.h"
#include "memory/output_buffer.h"
#include "memory/work_buffer.h"

TEST_CASE("a work buffer has 1 to 2^31 - 1 bytes, described ones too") {
  for (const std::int64_t size : {std::int64_t{-1}, std::int64_t{0}, kMaxSize + 1}) {
    const WorkBuffer none(size);
    CHECK_FALSE(static_cast<bool>(none));
    CHECK(none.bytes().empty());
  }
  for (const std::int64_t size : {std::int64_t{1}, WorkBuffer::kInlineSize, WorkBuffer::kInlineSize + 1}) {
    const WorkBuffer some(size, kMaxSize);
    CHECK(some.size() == size);
    CHECK_FALSE(static_cast<bool>(WorkBuffer(size, kMaxSize + 1)));
  }
  CHECK(allocateUnits<char>(kMaxSize + 1) == nullptr);
}

TEST_CASE("output grows in steps of any size, and no further than a string can") {
  OutputBuffer output;
  std::uint8_t* cursor = output.begin();
  for (const std::int64_t step : {std::int64_t{1}, OutputBuffer::kInlineSize, std::int64_t{100'000}}) {
    REQUIRE(output.makeRoom(cursor, step));
    CHECK(output.room(cursor) >= step);
    for (std::int64_t i = 0; i < step; ++i) *cursor++ = static_cast<std::uint8_t>(step);
  }
  const std::uint8_t* const before = cursor;
  CHECK_FALSE(output.makeRoom(cursor, kMaxSize + OutputBuffer::kSlack));
  CHECK(output.tooLong());
  CHECK(cursor == before);
  REQUIRE(output.finish(cursor));
  CHECK(output.bytes().front() == 1);
  CHECK(output.bytes()[1] == (OutputBuffer::kInlineSize & 0xFF));
  CHECK(output.size() == 1 + OutputBuffer::kInlineSize + 100'000);
}
