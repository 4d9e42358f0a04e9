/// Which plugin a command line is about.
#pragma once

#include <filesystem>

#include "stringhost/command_line.h"

namespace stringhost {

/// The file named on the command line, or else the one built, unpacked or installed with this program. Throws
/// `UsageError` where there is none of these.
[[nodiscard]] std::filesystem::path pluginFile(const CommandLine& line);

}  // namespace stringhost
