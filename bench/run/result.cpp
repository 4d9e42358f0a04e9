#include "bench/run/result.h"

const Figure* Result::find(Kind kind) const noexcept {
  const Figure* best = nullptr;
  for (const Figure& figure : figures) {
    if (figure.kind == kind && figure.counts && (best == nullptr || figure.nanoseconds < best->nanoseconds))
      best = &figure;
  }
  return best;
}

const Figure* Result::find(const std::string& name) const noexcept {
  for (const Figure& figure : figures) {
    if (figure.name == name) return &figure;
  }
  return nullptr;
}

double Result::againstPeer() const noexcept {
  const Figure* const peer = bestPeer();
  return peer != nullptr ? peer->nanoseconds / method().nanoseconds : 0;
}

double Result::againstCopy() const noexcept {
  const Figure* const copy = find(Kind::kCopyInput);
  return copy != nullptr ? copy->nanoseconds / method().nanoseconds : 0;
}

std::string Result::key() const { return job + " | " + corpus + " | " + sizeText(size, unit); }

std::string sizeText(std::size_t size, const std::string& unit) {
  if (unit != "bytes") return std::to_string(size) + ' ' + unit;
  if (size >= 1 << 20) return std::to_string(size >> 20) + " MiB";
  if (size >= 1 << 10) return std::to_string(size >> 10) + " KiB";
  return std::to_string(size) + " B";
}
