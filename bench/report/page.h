/// The page on speed and its charts, written from one run of everything.
#pragma once

#include <filesystem>
#include <span>
#include <string>

#include "bench/run/result.h"

/// Writes speed.md and, in a folder speed beside it, the charts.
/// @param appendix  further sections, as Markdown
void writePage(const std::filesystem::path& folder, std::span<const Result> results, const std::string& appendix);
