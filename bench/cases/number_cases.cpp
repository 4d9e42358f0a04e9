/// Numbers as text.
#include <cmath>

#include "bench/cases/inputs.h"

using inputs::number;

namespace {

double whole(Random& random) { return static_cast<double>(random.below(1'000'000)); }
double price(Random& random) { return static_cast<double>(random.below(10'000'000)) / 100; }

/// Any size and precision, as measurements have it.
double measurement(Random& random) {
  const double digits = static_cast<double>(random.next()) / 281'474'976'710'656.0;
  const double value = digits * std::pow(10.0, static_cast<double>(random.below(21)) - 5);
  return random.oneIn(2) ? -value : value;
}

double mix(Random& random) {
  const std::size_t kind = random.below(3);
  if (kind == 0) return whole(random);
  return kind == 1 ? price(random) : measurement(random);
}

}  // namespace

std::vector<Case> numberCases() {
  const std::string group = "Numbers";
  return {
      {group,
       "Str",
       "StrZQV",
       1,
       Opens::kNothing,
       Builds::kASCII,
       {{"whole numbers", number(whole)},
        {"prices", number(price)},
        {"measurements", number(measurement)},
        {"mix", number(mix)}},
       {1},
       "number"},
      {group,
       "Scientific",
       "ScientificStrZQV",
       2,
       Opens::kNothing,
       Builds::kASCII,
       {{"6 digits", number(mix, {6})}, {"15 digits", number(mix, {15})}},
       {1},
       "number"},
  };
}
