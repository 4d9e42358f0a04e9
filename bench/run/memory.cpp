#include "bench/run/memory.h"

#include <fstream>
#include <optional>

#include "bench/host/bound_method.h"
#include "bench/host/lean_host.h"
#include "bench/host/lean_string.h"
#include "bench/host/plugin_file.h"
#include "bench/run/in_child.h"

namespace {

constexpr std::size_t kInput = 64 << 20;

/// A line of the process's status, in bytes.
std::size_t statusBytes(const std::string& name) {
  std::ifstream file("/proc/self/status");
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(name)) return std::stoul(line.substr(name.size())) * 1024;
  }
  return 0;
}

void forgetPeak() { std::ofstream("/proc/self/clear_refs") << "5"; }

/// The form that the method asks for belongs to the host, so it is made before the call.
void makeForm(REALstringStruct* string, Opens opens) {
  if (string == nullptr) return;
  if (opens == Opens::kASCII) (void)lean::formOf(string, kEncodingASCII);
  if (opens == Opens::kUTF8) (void)lean::formOf(string, kEncodingUTF8);
  if (opens == Opens::kUTF16) (void)lean::formOf(string, kEncodingUTF16);
  if (opens == Opens::kUTF32) (void)lean::formOf(string, kEncodingUTF32);
}

struct Measured {
  std::size_t input;
  std::size_t output;
  std::size_t peak;
  std::size_t handed;
};

Measured measure(const std::filesystem::path& plugin, const Case& test, const Corpus& corpus) {
  lean::loadPlugin(plugin);
  const MethodEntry* const method = lean::findMethod(test.method, test.parameterCount);
  if (method == nullptr) throw std::runtime_error("no such method");
  Random random(1);
  const Input input = corpus.make(test.unit == "bytes" ? kInput : test.sizes.back(), random);
  const lean::HostArguments arguments(input);
  for (REALstringStruct* const string : arguments.strings) makeForm(string, test.opens);
  const lean::BoundMethod call = lean::bind(*method, arguments);

  forgetPeak();
  const std::size_t before = statusBytes("VmRSS:");
  const std::size_t madeBefore = lean::bytesMade();
  const lean::Answer answer = call();
  const std::size_t peak = statusBytes("VmHWM:");
  const bool isNew = answer.string != nullptr && (arguments.strings.empty() || answer.string != arguments.strings[0]);
  std::size_t output = isNew ? lean::bytesOf(answer.string).size() : 0;
  if (answer.block != nullptr) output = static_cast<std::size_t>(lean::sizeOf(answer.block));
  return {input.byteCount(), output, peak > before ? peak - before : 0, lean::bytesMade() - madeBefore};
}

/// What the corpus is like that shows the most: the one with everything to do comes last.
const Corpus& worst(const Case& test) { return test.corpora.back(); }

}  // namespace

std::vector<MemoryUse> measureMemory(const std::filesystem::path& plugin, const std::vector<Case>& cases) {
  std::vector<MemoryUse> uses;
  for (const Case& test : cases) {
    if (test.unit == "number") continue;
    const std::optional<Measured> use = inChild([&] { return measure(plugin, test, worst(test)); });
    if (use) uses.push_back({test.job, worst(test).name, use->input, use->output, use->peak, use->handed});
  }
  return uses;
}
