#include "standin/host.h"

#include <stdexcept>

#include "standin/account.h"
#include "standin/services.h"
#include "standin/transcode.h"

namespace standin {
namespace {

constexpr std::uint8_t kNotZero = 0x5A;

/// Serves the threads that have no account.
std::atomic<Host*> gYoungest{nullptr};

Service known(const std::string& name) {
  const auto service = serviceNamed(name);
  if (!service) throw std::invalid_argument("the host knows no service \"" + name + "\"");
  return *service;
}

}  // namespace

Host::Host(const Options& options) : options_(options) {
  for (const std::string& name : options.without) setting(known(name)).absent = true;
  for (const auto& [name, call] : options.failing) setting(known(name)).failing = call;
  for (const auto& [name, answer] : options.answers) setting(known(name)).answer = answer;
  if (!options.reportsVersion) setting(Service::kGetRBVersion).absent = true;
  gYoungest = this;
}

Host::~Host() {
  Host* self = this;
  gYoungest.compare_exchange_strong(self, nullptr);
}

Host* Host::youngest() noexcept { return gYoungest; }

HostEntry Host::resolve(const char* name) noexcept {
  Account* const account = Account::current();
  Host* const host = account != nullptr ? &account->host() : youngest();
  if (host == nullptr || name == nullptr) return nullptr;
  try {
    host->noteLookup(name);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
  const auto service = serviceNamed(name);
  if (!service || *service == Service::kLenB || !host->offers(*service)) return nullptr;
  return serviceEntry(*service);
}

int Host::lookups(const std::string& name) const {
  const std::lock_guard lock(guard_);
  const auto found = lookups_.find(name);
  return found == lookups_.end() ? 0 : found->second;
}

void Host::noteLookup(const char* name) {
  if (!options_.logs) return;
  if (Account* account = Account::current()) account->lookups.emplace_back(name);
  const std::lock_guard lock(guard_);
  ++lookups_[name];
}

void Host::keepForever(const ModuleRecord* module) {
  static std::mutex guard;
  // Never destroyed, so that to the process's last moment the records are seen to be in use.
  static auto* const kept = new std::vector<const ModuleRecord*>;
  const std::lock_guard lock(guard);
  kept->push_back(module);
}

HostString* Host::makeString(const Text& text) {
  // A text that older hosts let the plugin read in place ends in a terminator; other bytes end where they end.
  const bool isText = hasReadableStructures() && (text.encoding == kEncodingASCII || text.encoding == kEncodingUTF8);
  Contents::Layout layout{isText ? std::size_t{1} : 0, 0, options_.oddStorage, options_.checking, text.stretchedTo};
  return own(std::make_unique<HostString>(text.bytes, text.encoding, layout, hasReadableStructures()));
}

HostString* Host::makeConverted(std::string_view bytes, TextEncoding encoding, std::size_t stretchedTo) {
  Contents::Layout layout = formLayout(encoding);
  layout.stretchedTo = stretchedTo;
  layout.odd = options_.oddStorage;
  if (!hasReadableStructures()) layout.tail = 0;
  return own(std::make_unique<HostString>(bytes, encoding, layout, hasReadableStructures()));
}

MemoryBlock* Host::makeBlock(std::size_t size) {
  Contents bytes(size, Contents::Layout{0, 0, false, options_.checking});
  return own(std::make_unique<MemoryBlock>(std::move(bytes)));
}

MemoryBlock* Host::makeBlock(const Block& block) {
  if (block.stretchedTo <= block.bytes.size()) {
    MemoryBlock* const made = makeBlock(block.bytes.size());
    block.bytes.copy(reinterpret_cast<char*>(made->contents.data()), block.bytes.size());
    return made;
  }
  const Contents::Layout layout{.stretchedTo = block.stretchedTo};
  return own(std::make_unique<MemoryBlock>(Contents(std::string_view(block.bytes), layout)));
}

ExceptionObject* Host::makeException(std::string_view className) {
  return own(std::make_unique<ExceptionObject>(std::string(className)));
}

Contents::Layout Host::formLayout(TextEncoding encoding) const noexcept {
  return {static_cast<std::size_t>(unitSize(encoding)), options_.terminated ? std::uint8_t{0} : kNotZero, false,
          options_.checking};
}

void Host::dress(std::string& text, TextEncoding encoding) const {
  const int unit = unitSize(encoding);
  if (unit == 1) return;
  if (options_.byteOrderMark) text.insert(0, unit == 2 ? utf16(u"\uFEFF").bytes : utf32(U"\uFEFF").bytes);
  if (options_.swapped) reverseUnits(text, unit);
}

void Host::enter(Counted* thing) {
  if (Account* account = Account::current()) {
    account->things_.emplace_back(thing);
    thing->track();
    if (!account->services.empty()) account->services.back().made = thing;
  }
  alive_.fetch_add(1, std::memory_order_relaxed);
}

void Host::release(Counted* thing) noexcept {
  if (thing == nullptr || !thing->drop()) return;
  alive_.fetch_sub(1, std::memory_order_relaxed);
  if (thing->isTracked()) {
    thing->dissolve();
  } else {
    delete thing;
  }
}

}  // namespace standin
