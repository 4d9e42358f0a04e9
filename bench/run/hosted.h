/// A peer as if it were a method: it opens the arguments and builds its answer through the same bridge to the host.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "bench/cases/case.h"
#include "bench/host/bound_method.h"
#include "bench/peers/peer.h"

/// One call of a case: the arguments, in a host and bare, and the answer that our method gave.
struct Call {
  explicit Call(const Input& input) : arguments(input) {}

  lean::HostArguments arguments;
  lean::BoundMethod method;
  Operands operands;
  std::string expected;
  bool sameHandle = false;           ///< the method gave the argument back
  std::vector<std::uint8_t> units;   ///< the expected text in the units that the result is built of
  Builds builds = Builds::kNothing;  ///< how an answer becomes a string here
};

/// Takes an answer and makes the host string of it, the way the method does. Where that goes through wide units, they
/// are those of the expected answer, made beforehand, so that nobody pays for widening.
class HostedSink final : public AnswerSink {
 public:
  explicit HostedSink(const Call& call) noexcept : call_(call) {}
  ~HostedSink();
  HostedSink(const HostedSink&) = delete;
  HostedSink& operator=(const HostedSink&) = delete;

  using AnswerSink::text;
  void text(const void* bytes, std::size_t size) override;
  void number(double value) override;

 private:
  const Call& call_;
  REALstringStruct* string_ = nullptr;
  double number_ = 0;
};

/// A function that runs a peer, hosted, on all calls in turn. The calls have to outlive it.
[[nodiscard]] std::function<void()> hostedPeer(std::vector<Call>& calls, Opens opens, PeerFunction peer);

/// The same with nothing between opening and building: what the host and the bridge cost.
[[nodiscard]] std::function<void()> hostedNothing(std::vector<Call>& calls, Opens opens);
