#include <iterator>

#include "bench/cases/case.h"

std::vector<Case> allCases() {
  std::vector<Case> all;
  for (auto* const group : {markupCases, codecCases, byteCases, analysisCases, numberCases}) {
    std::vector<Case> cases = group();
    std::move(cases.begin(), cases.end(), std::back_inserter(all));
  }
  return all;
}
