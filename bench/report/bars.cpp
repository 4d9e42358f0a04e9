#include "bench/report/bars.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "bench/report/figures.h"

namespace {

constexpr double kLabelWidth = 250;
constexpr double kPlotWidth = 520;
constexpr double kLine = 34;
constexpr double kTop = 76;
constexpr double kBarHeight = 11;

constexpr const char* kStyle = R"(<style>
text { font: 12px system-ui, sans-serif; fill: #1f2328; }
.title { font-weight: 600; font-size: 14px; }
.tick { fill: #59636e; font-size: 11px; }
.grid { stroke: #d1d9e0; } .one { stroke: #59636e; }
.long { fill: #0969da; } .short { fill: #8250df; } .behind { fill: #cf222e; }
@media (prefers-color-scheme: dark) {
  text { fill: #f0f6fc; } .tick { fill: #9198a1; }
  .grid { stroke: #3d444d; } .one { stroke: #9198a1; }
  .long { fill: #4493f8; } .short { fill: #ab7df8; } .behind { fill: #f85149; }
}
</style>
)";

std::string escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '<') {
      result += "&lt;";
    } else if (c == '&') {
      result += "&amp;";
    } else {
      result += c;
    }
  }
  return result;
}

template <typename... Values>
std::string print(const char* format, Values... values) {
  char buffer[512];
  std::snprintf(buffer, sizeof buffer, format, values...);
  return buffer;
}

/// Positions on the scale of doublings.
class Scale {
 public:
  explicit Scale(std::span<const Bar> bars) {
    for (const Bar& bar : bars) {
      for (const double ratio : {bar.longRatio, bar.shortRatio}) {
        if (ratio <= 0) continue;
        low_ = std::min(low_, std::floor(std::log2(ratio)));
        high_ = std::max(high_, std::ceil(std::log2(ratio)));
      }
    }
  }

  [[nodiscard]] double at(double ratio) const {
    return kLabelWidth + kPlotWidth * (std::log2(ratio) - low_) / (high_ - low_);
  }
  [[nodiscard]] int low() const { return static_cast<int>(low_); }
  [[nodiscard]] int high() const { return static_cast<int>(high_); }

 private:
  double low_ = -1;
  double high_ = 2;
};

std::string oneBar(const Scale& scale, double ratio, double y, const char* kind) {
  if (ratio <= 0) return {};
  const double from = std::min(scale.at(1), scale.at(ratio));
  const double width = std::max(1.0, std::abs(scale.at(ratio) - scale.at(1)));
  const char* const shown = ratio < 0.95 ? "behind" : kind;
  const double textX = std::max(scale.at(ratio), scale.at(1)) + 5;
  return print("<rect class=\"%s\" x=\"%.1f\" y=\"%.1f\" width=\"%.1f\" height=\"%.0f\" rx=\"2\"/>\n", shown, from, y,
               width, kBarHeight) +
         print("<text class=\"tick\" x=\"%.1f\" y=\"%.1f\">", textX, y + kBarHeight - 1) + figures::ratio(ratio) +
         "</text>\n";
}

std::string grid(const Scale& scale, double bottom) {
  std::string svg;
  for (int power = scale.low(); power <= scale.high(); ++power) {
    const double x = scale.at(std::exp2(power));
    svg += print("<line class=\"%s\" x1=\"%.1f\" y1=\"%.0f\" x2=\"%.1f\" y2=\"%.0f\"/>\n", power == 0 ? "one" : "grid",
                 x, kTop - 12, x, bottom);
    svg += print("<text class=\"tick\" x=\"%.1f\" y=\"%.0f\" text-anchor=\"middle\">%g×</text>\n", x, kTop - 18,
                 std::exp2(power));
  }
  return svg;
}

}  // namespace

std::string barChart(const std::string& title, const std::string& longName, const std::string& shortName,
                     std::span<const Bar> bars) {
  const Scale scale(bars);
  const double bottom = kTop + kLine * static_cast<double>(bars.size());
  std::string svg = print("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %.0f %.0f\" role=\"img\">\n",
                          kLabelWidth + kPlotWidth + 60, bottom + 12);
  svg += "<title>" + escaped(title) + "</title>\n" + kStyle;
  svg += "<text class=\"title\" x=\"8\" y=\"20\">" + escaped(title) + "</text>\n";
  svg += "<rect class=\"long\" x=\"8\" y=\"31\" width=\"10\" height=\"10\"/><text x=\"24\" y=\"40\">" + longName +
         "</text>\n";
  svg += "<rect class=\"short\" x=\"118\" y=\"31\" width=\"10\" height=\"10\"/><text x=\"134\" y=\"40\">" + shortName +
         "</text>\n";
  svg += grid(scale, bottom);
  double y = kTop;
  for (const Bar& bar : bars) {
    svg += print("<text x=\"%.0f\" y=\"%.1f\" text-anchor=\"end\">", kLabelWidth - 12, y + kBarHeight + 4) +
           escaped(bar.label) + "</text>\n";
    svg += oneBar(scale, bar.longRatio, y, "long");
    svg += oneBar(scale, bar.shortRatio, y + kBarHeight + 2, "short");
    y += kLine;
  }
  return svg + "</svg>\n";
}
