#include "stringhost/numbers.h"

namespace stringhost {

#ifdef __cpp_lib_to_chars

std::from_chars_result numbers::read(const char* first, const char* last, double& number) {
  return std::from_chars(first, last, number);
}

std::string numbers::shortest(double number) {
  char buffer[32];
  return {buffer, std::to_chars(buffer, buffer + sizeof buffer, number).ptr};
}

#else

std::from_chars_result numbers::read(const char* first, const char* last, double& number) {
  return portable::read(first, last, number);
}

std::string numbers::shortest(double number) { return portable::shortest(number); }

#endif

}  // namespace stringhost
