/// The table on the terminal, a line a case, and what is under way while it is.
#pragma once

#include <span>

#include "bench/run/result.h"

class Terminal {
 public:
  void begin(std::size_t total);
  void working(const std::string& what);  ///< shown only where a person looks, and overwritten
  void row(const Result& result);
  void note(const std::string& text);

  /// What is behind a peer; nothing when nothing is.
  void behind(std::span<const Result> results);

 private:
  void clearProgress();

  std::size_t total_ = 0;
  std::size_t done_ = 0;
  std::string lastJob_;
};
