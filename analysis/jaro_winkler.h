/// Jaro-Winkler distance of texts.
#pragma once

#include "memory/byte_view.h"

namespace jaro_winkler {

/// Which text's work area could not be had.
enum class Shortage : unsigned char { kNone, kFirstText, kSecondText };

struct Result {
  double distance;
  Shortage shortage = Shortage::kNone;
};

/// 1 less the similarity after Jaro (M. A. Jaro: Advances in Record-Linkage Methodology, Journal of the American
/// Statistical Association 84, 1989), which is raised by a tenth of what it lacks for each of up to four leading
/// code points in common where it exceeds 0.7 (W. E. Winkler: String Comparator Metrics, 1990). Two empty texts have
/// the distance 0.0, an empty one and another 1.0.
///
/// Takes time and memory in proportion to the lengths; texts of up to 64 code points need no memory. Without memory the
/// distance is 0.0.
[[nodiscard]] Result distance(Utf32View a, Utf32View b) noexcept;

}  // namespace jaro_winkler
