/// All figures as JSON, for whoever wants to look at them in another way.
#pragma once

#include <filesystem>
#include <span>

#include "bench/run/result.h"

void writeJson(const std::filesystem::path& file, std::span<const Result> results);
