#include "bench/run/hosted.h"

#include <benchmark/benchmark.h>
#include <stdexcept>

#include "bench/host/lean_string.h"
#include "host/build_string.h"
#include "host/rb_data.h"
#include "host/rb_text.h"

namespace {

TextEncoding encodingOf(Builds builds) {
  switch (builds) {
    case Builds::kASCII:
      return kEncodingASCII;
    case Builds::kUTF8:
      return kEncodingUTF8;
    case Builds::kUTF16:
      return kEncodingUTF16;
    case Builds::kUTF32:
      return kEncodingUTF32;
    default:
      return kEncodingNone;
  }
}

struct AsBytes {
  using Opened = rbData;
  static ByteView peerView(rbData& data) { return data.bytes(); }
  static void open(rbData& data) { benchmark::DoNotOptimize(data.bytes().data()); }
};

struct AsASCII {
  using Opened = rbText;
  static ByteView peerView(rbText& text) { return text.ascii(); }
  static void open(rbText& text) { benchmark::DoNotOptimize(text.ascii().data()); }
};

/// Peers read UTF-8, whatever form the method asks for; each form costs this host the same.
struct AsText {
  using Opened = rbText;
  static ByteView peerView(rbText& text) { return text.utf8(); }
};

struct AsUTF8 : AsText {
  static void open(rbText& text) { benchmark::DoNotOptimize(text.utf8().data()); }
};

struct AsUTF16 : AsText {
  static void open(rbText& text) { benchmark::DoNotOptimize(text.utf16().data()); }
};

struct AsUTF32 : AsText {
  static void open(rbText& text) { benchmark::DoNotOptimize(text.utf32().data()); }
};

template <typename Access, std::size_t... index>
void runPeer(Call& call, PeerFunction peer, std::index_sequence<index...>) {
  typename Access::Opened opened[]{typename Access::Opened(call.arguments.strings[index])...};
  ((call.operands.bytes[index] = Access::peerView(opened[index])), ...);
  HostedSink sink(call);
  peer(call.operands, sink);
}

template <typename Access, std::size_t... index>
void runNothing(Call& call, std::index_sequence<index...>) {
  typename Access::Opened opened[]{typename Access::Opened(call.arguments.strings[index])...};
  (Access::open(opened[index]), ...);
  HostedSink sink(call);
  sink.text(std::string_view(call.expected));
}

template <typename Access, std::size_t count>
std::function<void()> contender(std::vector<Call>& calls, PeerFunction peer) {
  if (peer == nullptr) {
    return [&calls] {
      for (Call& call : calls) runNothing<Access>(call, std::make_index_sequence<count>());
    };
  }
  return [&calls, peer] {
    for (Call& call : calls) runPeer<Access>(call, peer, std::make_index_sequence<count>());
  };
}

/// Without arguments to open.
std::function<void()> contender(std::vector<Call>& calls, PeerFunction peer) {
  return [&calls, peer] {
    for (Call& call : calls) {
      HostedSink sink(call);
      if (peer != nullptr) {
        peer(call.operands, sink);
      } else {
        sink.text(std::string_view(call.expected));
      }
    }
  };
}

template <typename Access>
std::function<void()> contenderFor(std::vector<Call>& calls, PeerFunction peer) {
  switch (calls.front().arguments.strings.size()) {
    case 1:
      return contender<Access, 1>(calls, peer);
    case 2:
      return contender<Access, 2>(calls, peer);
    case 5:
      return contender<Access, 5>(calls, peer);
    case 6:
      return contender<Access, 6>(calls, peer);
    default:
      throw std::logic_error("a case has a number of strings that isn't provided for");
  }
}

std::function<void()> contenderFor(std::vector<Call>& calls, Opens opens, PeerFunction peer) {
  switch (opens) {
    case Opens::kNothing:
      return contender(calls, peer);
    case Opens::kBytes:
      return contenderFor<AsBytes>(calls, peer);
    case Opens::kASCII:
      return contenderFor<AsASCII>(calls, peer);
    case Opens::kUTF8:
      return contenderFor<AsUTF8>(calls, peer);
    case Opens::kUTF16:
      return contenderFor<AsUTF16>(calls, peer);
    case Opens::kUTF32:
      return contenderFor<AsUTF32>(calls, peer);
  }
  throw std::logic_error("no such way to open");
}

}  // namespace

HostedSink::~HostedSink() {
  benchmark::DoNotOptimize(number_);
  if (string_ != nullptr) lean::drop(string_);
}

void HostedSink::text(const void* bytes, std::size_t size) {
  if (call_.builds == Builds::kNothing) return;
  if (!call_.units.empty()) {
    bytes = call_.units.data();
    size = call_.units.size();
  }
  string_ = REALBuildUnicodeString(bytes, static_cast<std::int64_t>(size), encodingOf(call_.builds));
}

void HostedSink::number(double value) { number_ = value; }

std::function<void()> hostedPeer(std::vector<Call>& calls, Opens opens, PeerFunction peer) {
  return contenderFor(calls, opens, peer);
}

std::function<void()> hostedNothing(std::vector<Call>& calls, Opens opens) {
  return contenderFor(calls, opens, nullptr);
}
