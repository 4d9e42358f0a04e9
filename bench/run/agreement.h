/// Whether a peer answers as we do. Nothing is timed before that is known.
#pragma once

#include <string>
#include <vector>

#include "bench/run/hosted.h"

enum class Agreement {
  kSame,
  kDiffers,
  kDoesLess,  ///< differs, and its answers are shorter than ours by more than a tenth: it left work undone
  kNoAnswer,
};

struct Finding {
  Agreement agreement;
  std::string ours;    ///< where the first difference is: a few bytes of our answer from there on,
  std::string theirs;  ///< and of theirs
};

/// Gives a peer each call's operands and compares what it says with what our method said.
[[nodiscard]] Finding compare(const std::vector<Call>& calls, const Peer& peer);
