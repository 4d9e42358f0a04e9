#include "bench/run/agreement.h"

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

}  // namespace

Agreement compare(const std::vector<Call>& calls, const Peer& peer) {
  bool same = true;
  std::size_t ours = 0;
  std::size_t theirs = 0;
  for (const Call& call : calls) {
    Recorder recorder;
    peer.run(call.operands, recorder);
    if (!recorder.answered()) return Agreement::kNoAnswer;
    same = same && recorder.answer() == call.expected;
    ours += call.expected.size();
    theirs += recorder.answer().size();
  }
  if (same) return Agreement::kSame;
  return !peer.isTerser && theirs < ours - ours / 10 ? Agreement::kDoesLess : Agreement::kDiffers;
}
