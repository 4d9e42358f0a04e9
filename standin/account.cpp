#include "standin/account.h"

namespace standin {
namespace {

thread_local Account* tCurrent = nullptr;

}  // namespace

Account::Account(Host& host) noexcept : host_(host), outer_(tCurrent) { tCurrent = this; }

Account::~Account() {
  close();
  tCurrent = outer_;
}

Account* Account::current() noexcept { return tCurrent; }

void Account::close() {
  raise(nullptr);
  for (std::unique_ptr<Counted>& thing : things_) {
    if (!thing->isAlive()) continue;
    report(thing->description() + " leaked, with references: " + std::to_string(thing->references()));
    const std::lock_guard lock(host_.guard_);
    host_.leaked_.push_back(std::move(thing));
  }
  things_.clear();
}

void Account::report(std::string violation) { violations.push_back(std::move(violation)); }

void Account::raise(ExceptionObject* exception) noexcept {
  if (exception != nullptr) exception->retain();
  host_.release(raised_);
  raised_ = exception;
}

Visit::Visit(Service service)
    : service_(service), account_(Account::current()), host_(account_ ? &account_->host() : Host::youngest()) {
  if (host_ == nullptr) {
    fails_ = true;
    return;
  }
  if (account_ != nullptr && host_->options_.logs) {
    account_->services.push_back(ServiceUse{service, nullptr, nullptr, std::nullopt});
    use_ = account_->services.size();
  }
  Host::Setting& setting = host_->setting(service);
  fails_ = setting.failing && (++setting.calls == *setting.failing || *setting.failing == 0);
}

void Visit::note(const Counted* thing) const noexcept {
  if (use_ != 0 && account_->services[use_ - 1].thing == nullptr) account_->services[use_ - 1].thing = thing;
}

void Visit::note(TextEncoding encoding) const noexcept {
  if (use_ != 0) account_->services[use_ - 1].encoding = encoding;
}

void Visit::report(const std::string& what) const {
  if (account_ != nullptr) account_->report(std::string(nameOf(service_)) + ": " + what);
}

}  // namespace standin
