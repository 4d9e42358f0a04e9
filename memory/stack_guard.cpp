/// What the compiler's stack protection refers to, on Windows. The library that comes with it would make the plugin
/// depend on the system's cryptography.

#ifdef _WIN32

extern "C" {

/// The value that a function finds unchanged below its return address. It is the place where the file was loaded,
/// which the system chooses at random; its upper bytes are zero, which ends most overruns by text.
void* __stack_chk_guard = &__stack_chk_guard;

/// Ends the process at once, without running any more of its code.
[[noreturn]] void __stack_chk_fail() {
  constexpr int kStackCookieCheckFailure = 2;
  __asm__ volatile("int $0x29" : : "c"(kStackCookieCheckFailure));
  __builtin_unreachable();
}
}

#endif  // _WIN32
