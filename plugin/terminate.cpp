/// What happens where an exception can go no further.

#include <cstdlib>

#ifdef __GLIBCXX__

namespace __gnu_cxx {

/// Ends the process. The runtime's own version says first, on the host's error output, which exception it was, and
/// brings a demangler along for that; all methods are `noexcept`, and none lets an exception come this far.
[[noreturn]] void __verbose_terminate_handler() { std::abort(); }

}  // namespace __gnu_cxx

#endif
