/// The failure that the distances report.
#pragma once

#include <cstdint>

/// Raises an "OutOfMemoryException" that names the size of the work area that could not be had.
void raiseNoWorkArea(std::int64_t byteCount) noexcept;
