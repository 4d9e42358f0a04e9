#include "bench/run/agreement.h"

#include <algorithm>

namespace {

class Recorder final : public AnswerSink {
 public:
  using AnswerSink::text;
  void text(const void* bytes, std::size_t size) override {
    answered_ = true;
    // The host has no string without bytes: the empty answer is the null handle.
    answer_ = size == 0 ? lean::textOf({}) : std::string(static_cast<const char*>(bytes), size);
  }
  void number(double value) override {
    answered_ = true;
    answer_ = lean::textOf({nullptr, nullptr, value});
  }

  [[nodiscard]] bool answered() const noexcept { return answered_; }
  [[nodiscard]] const std::string& answer() const noexcept { return answer_; }

 private:
  bool answered_ = false;
  std::string answer_;
};

/// Shows the bytes from the first difference on.
void showDifference(const std::string& ours, const std::string& theirs, Finding& finding) {
  constexpr std::size_t kShown = 16;
  constexpr std::size_t kBefore = 4;
  const auto [mine, other] = std::ranges::mismatch(ours, theirs);
  const auto at = static_cast<std::size_t>(mine - ours.begin());
  const std::size_t from = at > kBefore ? at - kBefore : 0;
  finding.ours = ours.substr(from, kShown);
  finding.theirs = theirs.substr(from, kShown);
}

}  // namespace

Finding compare(const std::vector<Call>& calls, const Peer& peer) {
  Finding finding{Agreement::kSame, {}, {}};
  std::size_t ours = 0;
  std::size_t theirs = 0;
  for (const Call& call : calls) {
    Recorder recorder;
    peer.run(call.operands, recorder);
    if (!recorder.answered()) return {Agreement::kNoAnswer, {}, {}};
    if (finding.agreement == Agreement::kSame && recorder.answer() != call.expected) {
      finding.agreement = Agreement::kDiffers;
      showDifference(call.expected, recorder.answer(), finding);
    }
    ours += call.expected.size();
    theirs += recorder.answer().size();
  }
  if (!peer.isTerser && theirs < ours - ours / 10) finding.agreement = Agreement::kDoesLess;
  return finding;
}
