/// The account of one call: everything the plugin does with the host on one thread, from the first service to the
/// last reference.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "standin/host.h"
#include "standin/transcript.h"

namespace standin {

/// While it lives, the host serves this thread through it. Accounts nest; each thread has its own.
///
/// Things made meanwhile stay known until `close`, even after their last reference, so that a second release of
/// the same thing is noticed instead of corrupting memory. A thread without an account is served by the youngest
/// host, and nothing is recorded.
class Account {
 public:
  explicit Account(Host& host) noexcept;
  ~Account();
  Account(const Account&) = delete;
  Account& operator=(const Account&) = delete;

  [[nodiscard]] static Account* current() noexcept;

  [[nodiscard]] Host& host() const noexcept { return host_; }

  /// Ends the account: whatever is still alive has leaked. To be called once the caller has given back its own.
  void close();

  void report(std::string violation);

  /// The exception the plugin raised, with a reference, or null.
  [[nodiscard]] ExceptionObject* raised() const noexcept { return raised_; }
  /// Takes a reference of its own. An exception raised before is dropped.
  void raise(ExceptionObject* exception) noexcept;

  std::vector<ServiceUse> services;  ///< called, in order
  std::vector<std::string> lookups;  ///< in order
  std::vector<std::string> violations;

 private:
  friend class Host;

  Host& host_;
  Account* outer_;
  ExceptionObject* raised_ = nullptr;
  std::vector<std::unique_ptr<Counted>> things_;
};

/// One service being served: which host serves it, in which account, and whether it is told to fail.
class Visit {
 public:
  explicit Visit(Service service);

  [[nodiscard]] Host& host() const noexcept { return *host_; }
  [[nodiscard]] Account* account() const noexcept { return account_; }
  [[nodiscard]] bool fails() const noexcept { return fails_; }

  /// Enters in the account what the service is asked about, or the encoding it is asked for.
  void note(const Counted* thing) const noexcept;
  void note(TextEncoding encoding) const noexcept;

  /// Reports a violation by the service's name.
  void report(const std::string& what) const;

 private:
  Service service_;
  Account* account_;
  Host* host_;
  bool fails_;
  std::size_t use_ = 0;  ///< index of this use in the account, plus one; 0 where nothing is recorded
};

}  // namespace standin
