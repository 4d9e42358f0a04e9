#include "bench/run/bout.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <stdexcept>

#include "bench/host/lean_host.h"
#include "bench/host/lean_string.h"
#include "bench/host/utf.h"
#include "bench/kernels/kernel.h"
#include "bench/run/agreement.h"
#include "bench/run/read_all.h"

namespace {

/// Short calls come in batches of different inputs, so that no branch predictor learns one of them by heart.
std::size_t batchSize(std::size_t size) { return size <= 64 ? 32 : size <= 256 ? 8 : 1; }

/// Room for any answer: the longest there is takes eight bytes a byte.
std::size_t roomFor(const Input& input, std::size_t size) { return 8 * (input.byteCount() + size) + 16384; }

template <typename Unit>
std::vector<std::uint8_t> widened(const std::string& utf8) {
  std::vector<std::uint8_t> bytes((utf8.size() + 1) * sizeof(Unit));
  auto* const begin = reinterpret_cast<Unit*>(bytes.data());
  const auto* const from = reinterpret_cast<const std::uint8_t*>(utf8.data());
  const Unit* const end = lean::decode(ByteView{from, utf8.size()}, begin);
  bytes.resize(static_cast<std::size_t>(end - begin) * sizeof(Unit));
  return bytes;
}

/// Runs the method once and keeps what it answered.
void learnAnswer(Call& call, Builds builds) {
  const lean::Answer answer = call.method();
  call.expected = lean::textOf(answer);
  call.sameHandle =
      answer.string != nullptr && !call.arguments.strings.empty() && answer.string == call.arguments.strings[0];
  call.builds = call.sameHandle ? Builds::kUTF8 : builds;
  lean::release(answer);
  if (call.builds == Builds::kUTF16) call.units = widened<char16_t>(call.expected);
  if (call.builds == Builds::kUTF32) call.units = widened<char32_t>(call.expected);
}

template <typename Unit>
std::span<const Unit> unitsOf(ByteView bytes) {
  return {reinterpret_cast<const Unit*>(bytes.data()), bytes.size() / sizeof(Unit)};
}

void fillOperands(Call& call, ByteSpan scratch, bool isText) {
  Operands& operands = call.operands;
  operands.count = call.arguments.strings.size();
  for (std::size_t i = 0; i < operands.count; ++i) operands.bytes[i] = lean::bytesOf(call.arguments.strings[i]);
  operands.integers = call.arguments.integers;
  operands.number = call.arguments.numbers.empty() ? 0 : call.arguments.numbers[0];
  operands.scratch = scratch;
  if (!isText) return;
  operands.utf16 = unitsOf<char16_t>(lean::formOf(call.arguments.strings[0], kEncodingUTF16));
  operands.utf32 = unitsOf<char32_t>(lean::formOf(call.arguments.strings[0], kEncodingUTF32));
  if (operands.count < 2 || call.arguments.strings[1] == nullptr) return;
  operands.secondUtf32 = unitsOf<char32_t>(lean::formOf(call.arguments.strings[1], kEncodingUTF32));
}

std::size_t copyInput(const Call& call) {
  std::size_t copied = 0;
  for (const ByteView bytes : std::span(call.operands.bytes).first(call.operands.count)) {
    if (!bytes.empty()) std::memcpy(call.operands.out() + copied, bytes.data(), bytes.size());
    copied += bytes.size();
  }
  return copied;
}

}  // namespace

Bout::Bout(const Case& test, const Corpus& corpus, std::size_t size, Field field) {
  prepare(test, corpus, size);
  addMethod();
  addYardsticks(test);
  if (field.kernels) addKernels(test);
  if (field.peers) addPeers(test);
}

void Bout::prepare(const Case& test, const Corpus& corpus, std::size_t size) {
  const MethodEntry* const method = lean::findMethod(test.method, test.parameterCount);
  if (method == nullptr) throw std::runtime_error("the plugin has no " + test.method);

  Random random(size + 1);
  std::vector<Input> inputs;
  const std::size_t count = test.unit == "number" ? 1024 : batchSize(size);
  for (std::size_t i = 0; i < count; ++i) inputs.push_back(corpus.make(size, random));
  scratch_.resize(roomFor(inputs.front(), size));

  const bool isText = test.opens != Opens::kNothing && test.opens != Opens::kBytes;
  const int raised = lean::exceptionsRaised();
  for (const Input& input : inputs) calls_.emplace_back(input);
  for (Call& call : calls_) {
    call.method = lean::bind(*method, call.arguments);
    fillOperands(call, scratch_, isText);
    learnAnswer(call, test.builds);
  }
  if (lean::exceptionsRaised() != raised) throw std::runtime_error(test.method + " raised an exception");

  const std::size_t outputBytes = test.builds == Builds::kNothing ? 0 : calls_.front().expected.size();
  result_ = {test.group, test.job, corpus.name, test.unit, size, inputs.front().byteCount(), outputBytes, {}};
}

void Bout::add(std::string name, Kind kind, std::function<void()> run, std::string rule) {
  contenders_.push_back({{std::move(name), kind, 0, 0, 0, std::move(rule), true}, std::move(run)});
}

void Bout::addMethod() {
  add("method", Kind::kMethod, [this] {
    for (const Call& call : calls_) lean::release(call.method());
  });
}

void Bout::addYardsticks(const Case& test) {
  add("host", Kind::kHost, hostedNothing(calls_, test.opens));
  if (result_.inputBytes == 0) return;
  add("memcpy of input", Kind::kCopyInput, [this] {
    for (const Call& call : calls_) copyInput(call);
    benchmark::ClobberMemory();
  });
  add("memcpy of input and output", Kind::kCopyBoth, [this] {
    for (const Call& call : calls_) {
      copyInput(call);
      std::memcpy(scratch_.data() + result_.inputBytes, call.expected.data(), call.expected.size());
    }
    benchmark::ClobberMemory();
  });
  add("read", Kind::kScan, [this] {
    for (const Call& call : calls_) benchmark::DoNotOptimize(readAll(call.operands.first()));
  });
}

void Bout::addKernels(const Case& test) {
  for (const Kernel& kernel : kernelsFor(test.job)) {
    add(kernel.name, Kind::kKernel, [this, run = kernel.run] {
      for (const Call& call : calls_) {
        benchmark::DoNotOptimize(run(call.operands));
        benchmark::ClobberMemory();
      }
    });
  }
}

void Bout::addPeers(const Case& test) {
  for (const Peer& peer : peersFor(test.job)) {
    const Finding finding = compare(calls_, peer);
    if (finding.agreement == Agreement::kNoAnswer) continue;
    const bool differs = finding.agreement != Agreement::kSame;
    const std::string rule = peer.rule != nullptr ? peer.rule : "";
    if (differs && rule.empty()) unexplained_.push_back(result_.key() + ": " + peer.name);
    if (differs)
      differences_.push_back(std::string(peer.name) + ", " + rule + ": " + finding.ours + " ≠ " + finding.theirs);
    add(peer.name, Kind::kPeer, hostedPeer(calls_, test.opens, peer.run), differs ? rule : "");
    contenders_.back().figure.counts = finding.agreement != Agreement::kDoesLess;
  }
}
