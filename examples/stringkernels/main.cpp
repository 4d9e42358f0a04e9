/// A page from what somebody typed, the name they probably meant, and the bytes of it all.
#include <array>
#include <cstdio>
#include <exception>
#include <string>
#include <stringkernels.h>

namespace {

/// The name that is the fewest edits away.
std::string nearest(const std::string& typed) {
  const std::array<std::string, 3> kNames = {"Jérôme", "Jessica", "José"};
  const std::string* best = &kNames[0];
  for (const std::string& name : kNames) {
    if (stringkernels::editDistance(typed, name) < stringkernels::editDistance(typed, *best)) best = &name;
  }
  return *best;
}

}  // namespace

int main() {
  try {
    const std::string typed = "Jeromé <jerome@example.org>";
    std::printf("%s\n", stringkernels::encodeHtml(typed).c_str());
    std::printf("%s\n", nearest(typed.substr(0, 7)).c_str());
    std::printf("%s\n", stringkernels::encodeUrl("a b+c", stringkernels::Plus::kSpace).c_str());
    std::printf("%s", stringkernels::hexDump(typed).c_str());
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
  }
}
