/// What came out of timing one case at one size.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

enum class Kind { kMethod, kKernel, kPeer, kHost, kCopyInput, kCopyBoth, kScan };

struct Figure {
  std::string name;
  Kind kind;
  double nanoseconds = 0;  ///< median of a call
  double quickest = 0;     ///< of all rounds
  double spread = 0;       ///< half the range between the quartiles, as a share of the median
  std::string rule;        ///< how the peer's answer differs from ours; empty: it doesn't
  bool counts = true;      ///< false for a peer that did less than was asked: it is shown, and no match
};

struct Result {
  std::string group;
  std::string job;
  std::string corpus;
  std::string unit;
  std::size_t size = 0;
  std::size_t inputBytes = 0;
  std::size_t outputBytes = 0;
  std::vector<Figure> figures;

  /// The figure of a kind, the quickest of those that count where there are several; null where there is none.
  [[nodiscard]] const Figure* find(Kind kind) const noexcept;
  [[nodiscard]] const Figure* find(const std::string& name) const noexcept;

  [[nodiscard]] const Figure& method() const noexcept { return *find(Kind::kMethod); }
  [[nodiscard]] const Figure* bestPeer() const noexcept { return find(Kind::kPeer); }

  /// Our speed against the best peer's, hosted alike; 0 without a peer.
  [[nodiscard]] double againstPeer() const noexcept;

  /// Our speed against that of memcpy over the same input; 0 where there is no input.
  [[nodiscard]] double againstCopy() const noexcept;

  /// From this ratio on we count as level: what two runs of one thing differ by.
  static constexpr double kLevel = 0.95;
  [[nodiscard]] bool isBehind() const noexcept { return bestPeer() != nullptr && againstPeer() < kLevel; }

  [[nodiscard]] std::string key() const;  ///< job, corpus and size in one line
};

/// "64 KiB", "20 B", "256 characters".
[[nodiscard]] std::string sizeText(std::size_t size, const std::string& unit);
