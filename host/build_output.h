/// Building the host string of an output that grew as it was written.
#pragma once

#include <new>

#include "host/build_string.h"
#include "memory/output_buffer.h"

/// Makes a host string of the output, if the writer says that it is complete. For use in `raisingOnFailure`.
/// Null when the output would have been longer than a string can be; throws `std::bad_alloc` when memory was short.
[[nodiscard]] inline REALstringStruct* buildOutput(bool complete, const OutputBuffer& output, TextEncoding encoding) {
  if (complete) return REALBuildUnicodeString(output.data(), output.size(), encoding);
  if (output.tooLong()) return nullptr;
  throw std::bad_alloc();
}
