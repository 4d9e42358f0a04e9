/// Whether a file is a library of this platform, and all of it is there.
#pragma once

#include <filesystem>

namespace standin {

/// Looks at the headers of a file before the system does: loaders map what the headers promise, and the process dies
/// where the file ends before that. Throws `std::runtime_error` with the reason, without the file's name, where it is
/// missing, a directory, unreadable, no library for this processor and system, or cut short.
void checkLibraryFile(const std::filesystem::path& file);

}  // namespace standin
