#include "bench/peers/peer.h"

#include <algorithm>

namespace {

std::vector<Peer>& lines() {
  static std::vector<Peer> peers;
  return peers;
}

}  // namespace

PeerLines::PeerLines(std::initializer_list<Peer> peers) { lines().insert(lines().end(), peers); }

std::vector<Peer> peersFor(std::string_view job) {
  std::vector<Peer> peers;
  std::ranges::copy_if(lines(), std::back_inserter(peers), [&](const Peer& peer) { return peer.job == job; });
  return peers;
}

std::vector<std::string> unknownJobs(std::span<const std::string> jobs) {
  std::vector<std::string> unknown;
  for (const Peer& peer : lines()) {
    if (std::ranges::find(jobs, peer.job) == jobs.end()) unknown.emplace_back(peer.job);
  }
  return unknown;
}
