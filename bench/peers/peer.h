/// How others take part: a thin wrapper around each, in a file of its own, that names the jobs it can do.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "memory/byte_view.h"

/// What a peer or a kernel is given for one call.
struct Operands {
  ByteView bytes[6];      ///< the text arguments; UTF-8 where the method reads text
  std::size_t count = 0;  ///< of them
  Utf16View utf16;        ///< the first argument in wider units, for kernels
  Utf32View utf32;
  Utf32View secondUtf32;
  std::span<const std::int32_t> integers;
  double number = 0;
  ByteSpan scratch;  ///< room for any answer, so that nobody has to allocate

  [[nodiscard]] ByteView first() const noexcept { return bytes[0]; }
  [[nodiscard]] std::string_view text(std::size_t index = 0) const noexcept {
    return {reinterpret_cast<const char*>(bytes[index].data()), bytes[index].size()};
  }
  [[nodiscard]] const char* chars() const noexcept { return reinterpret_cast<const char*>(bytes[0].data()); }
  [[nodiscard]] char* out() const noexcept { return reinterpret_cast<char*>(scratch.data()); }
};

/// Where the answer goes. A text is taken at once, so the caller may free it afterwards. A peer that can't do what is
/// asked gives no answer, and is left out of that case.
class AnswerSink {
 public:
  virtual void text(const void* bytes, std::size_t size) = 0;
  virtual void number(double value) = 0;

  void text(std::string_view answer) { text(answer.data(), answer.size()); }
  void text(const std::uint8_t* begin, const std::uint8_t* end) { text(begin, static_cast<std::size_t>(end - begin)); }

 protected:
  ~AnswerSink() = default;
};

using PeerFunction = void (*)(const Operands& operands, AnswerSink& answer);

struct Peer {
  const char* job;
  const char* name;
  PeerFunction run;
  const char* rule;       ///< how its answers differ from ours, where they do; null: they don't
  bool isTerser = false;  ///< its answers are shorter by their form, not because it leaves work undone
};

/// Defined once in each wrapper file, so that a file that isn't built leaves no gap.
class PeerLines {
 public:
  PeerLines(std::initializer_list<Peer> peers);
};

/// The peers for a job, in no particular order.
[[nodiscard]] std::vector<Peer> peersFor(std::string_view job);

/// The jobs that peers name and the table of cases doesn't have: slips of the pen.
[[nodiscard]] std::vector<std::string> unknownJobs(std::span<const std::string> jobs);
