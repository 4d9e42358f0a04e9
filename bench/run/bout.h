/// One case at one size, ready to be timed: calls prepared, contenders lined up, answers compared.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "bench/cases/case.h"
#include "bench/run/hosted.h"
#include "bench/run/result.h"

struct Contender {
  Figure figure;
  std::function<void()> run;  ///< all calls in turn
};

/// Who takes part.
struct Field {
  bool peers = true;
  bool kernels = true;
};

class Bout {
 public:
  /// Throws `std::runtime_error` where the plugin doesn't have the method or raised an exception.
  Bout(const Case& test, const Corpus& corpus, std::size_t size, Field field);
  Bout(const Bout&) = delete;

  [[nodiscard]] std::vector<Contender>& contenders() noexcept { return contenders_; }
  [[nodiscard]] std::size_t callCount() const noexcept { return calls_.size(); }

  /// The result as far as it is known before timing.
  [[nodiscard]] const Result& result() const noexcept { return result_; }

  /// Peers that answered otherwise than we without a rule that says how.
  [[nodiscard]] const std::vector<std::string>& unexplained() const noexcept { return unexplained_; }

  /// For every peer that answered otherwise: its rule, and where its answer first differs.
  [[nodiscard]] const std::vector<std::string>& differences() const noexcept { return differences_; }

 private:
  void prepare(const Case& test, const Corpus& corpus, std::size_t size);
  void addMethod();
  void addPeers(const Case& test);
  void addKernels(const Case& test);
  void addYardsticks(const Case& test);
  void add(std::string name, Kind kind, std::function<void()> run, std::string rule = {});

  std::vector<Call> calls_;
  std::vector<std::uint8_t> scratch_;
  std::vector<Contender> contenders_;
  std::vector<std::string> unexplained_;
  std::vector<std::string> differences_;
  Result result_;
};
