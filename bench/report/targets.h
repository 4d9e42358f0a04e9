/// What was aimed at, and what accepted misses are due to.
#pragma once

#include <span>
#include <string>

#include "bench/run/result.h"

/// Why a case is behind a peer or short of its target, in one line; empty where nothing is known.
[[nodiscard]] std::string reasonFor(const Result& result);

/// A table of every target and the figure reached, the misses first. Targets whose case wasn't timed are left out.
[[nodiscard]] std::string targetsSection(std::span<const Result> results);
