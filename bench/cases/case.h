/// What is timed: a job, the method that does it, and the inputs it is given.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "bench/corpus/input.h"
#include "bench/corpus/random.h"

/// The form a method asks of the host for its first arguments; further ones are opened the same way.
enum class Opens { kNothing, kBytes, kASCII, kUTF8, kUTF16, kUTF32 };

/// What becomes of the answer: nothing to build, or a string built of bytes or of wide units.
enum class Builds { kNothing, kASCII, kBinary, kUTF8, kUTF16, kUTF32 };

/// Makes the input of a size.
using MakeInput = std::function<Input(std::size_t size, Random& random)>;

struct Corpus {
  std::string name;
  MakeInput make;
};

/// One job. Peers and kernels name it to take part.
struct Case {
  std::string group;  ///< the chapter of the report
  std::string job;
  std::string method;  ///< as registered
  std::size_t parameterCount;
  Opens opens;
  Builds builds;
  std::vector<Corpus> corpora;
  std::vector<std::size_t> sizes = {20, 256, 4096, 65536, 4 << 20};
  std::string unit = "bytes";  ///< what a size counts
};

[[nodiscard]] std::vector<Case> markupCases();
[[nodiscard]] std::vector<Case> codecCases();
[[nodiscard]] std::vector<Case> byteCases();
[[nodiscard]] std::vector<Case> analysisCases();
[[nodiscard]] std::vector<Case> numberCases();

/// Inputs made to hurt, each at sizes ten times apart.
[[nodiscard]] std::vector<Case> growthCases();

/// All but those, in the order of the report.
[[nodiscard]] std::vector<Case> allCases();
