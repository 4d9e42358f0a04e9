/// The stand-in host itself: its settings, what a plugin registered with it, and the accounts it keeps.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/records.h"
#include "standin/counted.h"
#include "standin/host_objects.h"
#include "standin/host_string.h"
#include "standin/options.h"
#include "standin/service_names.h"

namespace standin {

/// What a plugin told the host at its start.
struct Registration {
  std::vector<HostInteger> controlVersions;  ///< every value given to "RegisterPluginVersion"
  std::vector<const ModuleRecord*> modules;
  std::vector<MethodEntry> methods;  ///< in order, whichever way they came
};

/// A host. It has to outlive whatever the plugin may still do with it.
class Host {
 public:
  /// Throws `std::invalid_argument` where the options name a service that doesn't exist.
  explicit Host(const Options& options);
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  [[nodiscard]] const Options& options() const noexcept { return options_; }
  [[nodiscard]] const Registration& registration() const noexcept { return registration_; }
  [[nodiscard]] Registration& registration() noexcept { return registration_; }

  /// The host made last, if it still is there: it serves threads that have no account.
  [[nodiscard]] static Host* youngest() noexcept;

  /// Answers a plugin's question for a service; this is what `REALPluginMain` is given.
  static HostEntry resolve(const char* name) noexcept;

  /// Enters a lookup in the logs.
  void noteLookup(const char* name);

  /// How often a name was looked up, or a global method asked for by its declaration.
  [[nodiscard]] int lookups(const std::string& name) const;

  /// Strings, objects and records that are alive.
  [[nodiscard]] std::int64_t alive() const noexcept { return alive_.load(std::memory_order_relaxed); }

  [[nodiscard]] bool offers(Service service) const noexcept { return !setting(service).absent; }
  [[nodiscard]] std::optional<std::int64_t> answer(Service service) const noexcept { return setting(service).answer; }

  // Making things. Each begins with one reference, the caller's; `std::bad_alloc` where there is no memory.

  /// A string as a program of the host has it.
  HostString* makeString(const Text& text);
  /// A string that holds a converted form, terminated as the options say.
  HostString* makeConverted(std::string_view bytes, TextEncoding encoding, std::size_t stretchedTo = 0);
  MemoryBlock* makeBlock(std::size_t size);
  MemoryBlock* makeBlock(const Block& block);
  ExceptionObject* makeException(std::string_view className);
  /// Where a converted form's terminator and guard lie, for records.
  [[nodiscard]] Contents::Layout formLayout(TextEncoding encoding) const noexcept;
  /// The options' byte-order mark and byte order, applied to text in `encoding`.
  void dress(std::string& text, TextEncoding encoding) const;

  /// Enters a new thing into the accounts.
  template <typename Thing>
  Thing* own(std::unique_ptr<Thing> thing) {
    enter(thing.get());
    return thing.release();
  }

  /// Keeps what a plugin hands over for good, even after its end.
  static void keepForever(const ModuleRecord* module);

  /// Drops a reference, and the thing with its last one. Null is ignored.
  void release(Counted* thing) noexcept;

 private:
  friend class Account;
  friend class Visit;

  struct Setting {
    bool absent = false;
    std::optional<int> failing;
    std::optional<std::int64_t> answer;
    std::atomic<int> calls{0};
  };

  [[nodiscard]] Setting& setting(Service service) noexcept { return settings_[static_cast<std::size_t>(service)]; }
  [[nodiscard]] const Setting& setting(Service service) const noexcept {
    return settings_[static_cast<std::size_t>(service)];
  }
  /// A host that doesn't tell its version is taken for the oldest there is, and is laid out as such.
  [[nodiscard]] bool hasReadableStructures() const noexcept {
    const Setting& version = setting(Service::kGetRBVersion);
    return options_.version < 2016.0 || version.absent || version.failing;
  }
  void enter(Counted* thing);

  Options options_;
  Registration registration_;
  std::array<Setting, kServiceCount> settings_;
  std::atomic<std::int64_t> alive_{0};
  mutable std::mutex guard_;  ///< of the two below
  std::map<std::string, int, std::less<>> lookups_;
  std::vector<std::unique_ptr<Counted>> leaked_;
};

}  // namespace standin
