/// Numbers as they are typed and printed, the same with every standard library.
#pragma once

#include <charconv>
#include <concepts>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace stringhost::numbers {

/// What `std::from_chars` does for doubles.
std::from_chars_result read(const char* first, const char* last, double& number);

template <std::integral Integer>
std::from_chars_result read(const char* first, const char* last, Integer& number) {
  return std::from_chars(first, last, number);
}

/// The number that all of `written` is; nothing where it is none, or none of that range.
template <typename Number>
[[nodiscard]] std::optional<Number> parse(std::string_view written) {
  Number number{};
  const auto [end, error] = read(written.data(), written.data() + written.size(), number);
  if (error != std::errc() || end != written.data() + written.size()) return std::nullopt;
  return number;
}

/// The shortest digits that read back as the same number, with an exponent where that is shorter.
[[nodiscard]] std::string shortest(double number);

/// The routes of standard libraries that know no `std::from_chars` and `std::to_chars` for doubles. They expect a
/// process that has left the "C" locale set, and a C library whose conversions are exact, as that of Windows is not.
namespace portable {
std::from_chars_result read(const char* first, const char* last, double& number);
[[nodiscard]] std::string shortest(double number);
}  // namespace portable

}  // namespace stringhost::numbers
