#include "plugin/method_table.h"

#include "bytes/methods.h"
#include "host/methods.h"

namespace {

constexpr MethodEntry method(const char* declaration, MethodFunction function) noexcept {
  return {function, nullptr, declaration, kMethodFlag, 0, nullptr};
}

// clang-format off
constexpr MethodEntry kMethods[] = {
    method("UnicodeStringZQV(s as string) as string", RBUnicodeString),
    method("NativeStringZQV(s as string) as string", RBNativeString),
    method("ConcatBinaryStringsZQV(a as string, b as string, c as string, d as string, e as string, f as string) as string", ConcatBinaryStringsZQV6),
    method("ConcatBinaryStringsZQV(a as string, b as string, c as string, d as string, e as string) as string", ConcatBinaryStringsZQV5),
    method("ConcatBinaryStringsZQV(a as string, b as string, c as string, d as string) as string", ConcatBinaryStringsZQV4),
    method("ConcatBinaryStringsZQV(a as string, b as string, c as string) as string", ConcatBinaryStringsZQV3),
    method("ConcatBinaryStringsZQV(a as string, b as string) as string", ConcatBinaryStringsZQV2),
};
// clang-format on

}  // namespace

constinit const std::span<const MethodEntry> globalMethods{kMethods};
