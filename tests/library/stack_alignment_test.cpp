/// 32-bit hosts align the stack to 4 bytes only: every entry of the plugin has to work at each such position.

#include "tests/failures/calls.h"
#include "tests/support/methods.h"

using namespace testing;

extern "C" {
HostEntry misalignedTarget __asm__("misaligned_target") = nullptr;
int misalignedBy __asm__("misaligned_by") = 0;

/// Calls `misalignedTarget` with the arguments it was called with itself, up to 8 words, and the stack `misalignedBy`
/// bytes below a multiple of 16. It may be taken for a function of any signature.
void misaligned() __asm__("misaligned");
}

__asm__(R"(
  .text
misaligned:
  pushl %ebp
  movl %esp, %ebp
  andl $-16, %esp
  call 0f
0:
  popl %eax
  subl misaligned_by - 0b(%eax), %esp
  pushl 36(%ebp)
  pushl 32(%ebp)
  pushl 28(%ebp)
  pushl 24(%ebp)
  pushl 20(%ebp)
  pushl 16(%ebp)
  pushl 12(%ebp)
  pushl 8(%ebp)
  call *misaligned_target - 0b(%eax)
  leave
  ret
)");

namespace {

constexpr int kPositions[] = {0, 4, 8, 12};

}  // namespace

TEST_CASE("every method works wherever the stack stands") {
  Session session({.version = 2023.1});
  REQUIRE(!session.methods().empty());
  for (const Method& method : session.methods()) {
    const std::vector<Argument> arguments = failures::argumentsFor(method);
    const Outcome expected = session.call(method, arguments);
    Method moved = method;
    misalignedTarget = method.entry.function.entry;
    moved.entry.function.entry = misaligned;
    for (const int position : kPositions) {
      CAPTURE(method.declaration.name);
      CAPTURE(position);
      misalignedBy = position;
      const Outcome actual = session.call(moved, arguments);
      CHECK(actual.balanced);
      if (!method.declaration.name.starts_with("Random")) CHECK((actual.result == expected.result));
    }
  }
}

TEST_CASE("the entry point works wherever the stack stands") {
  for (const int position : kPositions) {
    const PluginLibrary library(STRING_PLUGIN_FILE, PluginLibrary::How::kFreshCopy);
    misalignedTarget = library.function("REALPluginMain");
    misalignedBy = position;
    static int lookups = 0;
    lookups = 0;
    const HostResolver resolver = [](const char*) -> HostEntry { return ++lookups, nullptr; };
    reinterpret_cast<void (*)(HostResolver)>(misaligned)(resolver);
    CHECK(lookups > 0);
  }
}
