/// Where this program lies.
#pragma once

#include <filesystem>

namespace stringhost {

/// The folder of the running program's file; empty where the system doesn't tell.
[[nodiscard]] std::filesystem::path executableFolder();

}  // namespace stringhost
