/// Bar charts of speed against the best peer, as SVG that is readable in light and dark.
#pragma once

#include <span>
#include <string>
#include <vector>

struct Bar {
  std::string label;
  double longRatio;  ///< 0: none
  double shortRatio;
};

/// One chart, two bars a line, on a scale of doublings with 1× marked. To the left of it is slower than the peer.
[[nodiscard]] std::string barChart(const std::string& title, const std::string& longName, const std::string& shortName,
                                   std::span<const Bar> bars);
