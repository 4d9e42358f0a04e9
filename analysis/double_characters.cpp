/// The choice between the routes.
#include "analysis/double_characters.h"

#include <system_error>

char* double_characters::write(char* first, const char* last, double value, std::chars_format format,
                               int decimals) noexcept {
#ifdef __cpp_lib_to_chars
  const auto [end, error] = std::to_chars(first, first + (last - first), value, format, decimals);
  return error == std::errc{} ? end : nullptr;
#else
  return formatted::write(first, last, value, format, decimals);
#endif
}
