/// A library file linked like the plugin, which throws and catches.

#include <stdexcept>
#include <string>

namespace {

struct Guard {
  int& unwound;
  ~Guard() { ++unwound; }
};

[[gnu::noinline]] int throwThrough(int depth, int& unwound) {
  const Guard guard{unwound};
  if (depth == 0) throw std::length_error(std::to_string(unwound));
  return throwThrough(depth - 1, unwound) + 1;
}

}  // namespace

/// Throws through as many frames as asked for.
/// @return how many of them were unwound
extern "C" __attribute__((visibility("default"))) int REALPluginMain(int depth) noexcept {
  int unwound = 0;
  try {
    return throwThrough(depth, unwound) < 0 ? -1 : -2;
  } catch (const std::exception& exception) {
    return exception.what() == std::string("0") ? unwound : -3;
  }
}
