#include "standin/session.h"

#include <charconv>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>

#include "standin/account.h"

namespace standin {
namespace {

using StartFunction = void(HostResolver resolver);

/// What a host leaves in the unused bits of a boolean argument's register.
constexpr HostBooleanArgument kBooleanRubbish = 0xA5A5A500;

[[noreturn]] void mismatch(const Method& method, std::size_t index) {
  const Parameter& parameter = method.declaration.parameters[index];
  throw std::invalid_argument(method.declaration.name + ": argument " + std::to_string(index + 1) + " (" +
                              parameter.name + ") is no " + nameOf(parameter.type));
}

/// A default value as it stands in the declaration.
Argument parseDefault(const Parameter& parameter) {
  const std::string& text = *parameter.defaultValue;
  switch (parameter.type) {
    case Type::kString:
      return text.empty() ? nullText() : utf8(text);
    case Type::kInteger:
      return static_cast<std::int32_t>(std::stol(text));
    case Type::kDouble:
      return std::stod(text);
    case Type::kBoolean:
      return text == "true";
    case Type::kMemoryBlock:
      break;
  }
  return nilBlock();
}

/// References on an argument during a call: the calling program's and the call's own.
constexpr int kReferences = 2;

const Counted* thingOf(const Value& value) noexcept {
  if (value.string != nullptr) return HostString::of(value.string);
  return value.block;
}

/// The arguments of one call, in the host's representation.
class Arguments {
 public:
  Arguments(Host& host, const Method& method, const std::vector<Argument>& given) : host_(host) {
    const auto& parameters = method.declaration.parameters;
    values_.reserve(parameters.size());
    for (std::size_t index = 0; index < parameters.size(); ++index) {
      values_.push_back(index < given.size() ? value(method, index, given[index])
                                             : value(method, index, parseDefault(parameters[index])));
    }
  }

  [[nodiscard]] const Value* data() const noexcept { return values_.data(); }

  /// The index of the argument with this handle, or -1.
  [[nodiscard]] int indexOf(const Value& result) const noexcept {
    for (std::size_t index = 0; index < values_.size(); ++index) {
      const Value& value = values_[index];
      const bool isSame = (value.string != nullptr && value.string == result.string) ||
                          (value.block != nullptr && value.block == result.block);
      if (isSame) return static_cast<int>(index);
    }
    return -1;
  }

  /// The arguments that are things of the host, null for the others.
  [[nodiscard]] std::vector<const Counted*> things() const {
    std::vector<const Counted*> things;
    things.reserve(values_.size());
    for (const Value& value : values_) things.push_back(thingOf(value));
    return things;
  }

  /// Gives the references back; what the plugin took and what it dropped have to balance.
  void release(Account& account) {
    for (std::size_t index = 0; index < values_.size(); ++index) {
      giveBack(account, index, values_[index].string ? HostString::of(values_[index].string) : nullptr);
      giveBack(account, index, values_[index].block);
    }
  }

 private:
  Value value(const Method& method, std::size_t index, const Argument& argument) {
    Value value;
    switch (method.declaration.parameters[index].type) {
      case Type::kString: {
        const Text* text = std::get_if<Text>(&argument);
        if (text == nullptr) mismatch(method, index);
        if (text->null) break;
        HostString* const string = host_.makeString(*text);
        string->retain();
        value.string = string;
        break;
      }
      case Type::kMemoryBlock: {
        const Block* block = std::get_if<Block>(&argument);
        if (block == nullptr) mismatch(method, index);
        if (block->nil) break;
        value.block = host_.makeBlock(*block);
        value.block->retain();
        break;
      }
      case Type::kInteger: {
        const auto* integer = std::get_if<std::int32_t>(&argument);
        if (integer == nullptr) mismatch(method, index);
        value.integer = *integer;
        break;
      }
      case Type::kDouble:
        if (const auto* number = std::get_if<double>(&argument)) {
          value.number = *number;
        } else if (const auto* integer = std::get_if<std::int32_t>(&argument)) {
          value.number = *integer;
        } else {
          mismatch(method, index);
        }
        break;
      case Type::kBoolean: {
        const bool* boolean = std::get_if<bool>(&argument);
        if (boolean == nullptr) mismatch(method, index);
        value.boolean = kBooleanRubbish | (*boolean ? 1U : 0U);
        break;
      }
    }
    return value;
  }

  /// Takes all references back, however many the plugin left.
  void giveBack(Account& account, std::size_t index, Counted* thing) {
    if (thing == nullptr) return;
    if (const int surplus = thing->references() - kReferences; surplus != 0) {
      account.report("argument " + std::to_string(index + 1) +
                     ": references taken less references dropped: " + std::to_string(surplus));
    }
    while (thing->isAlive()) host_.release(thing);
  }

  Host& host_;
  std::vector<Value> values_;
};

/// Reads a result and gives its reference back.
void takeResult(Account& account, Type type, const Value& value, Outcome& outcome) {
  Host& host = account.host();
  switch (type) {
    case Type::kString: {
      if (value.string == nullptr) {
        outcome.result = nullText();
        break;
      }
      HostString* const string = HostString::of(value.string);
      if (!string->isAlive()) {
        account.report("the result was released before it was returned");
        break;
      }
      outcome.result = marked(string->bytes(), string->mark());
      host.release(string);
      break;
    }
    case Type::kMemoryBlock:
      if (value.block == nullptr) {
        outcome.result = nilBlock();
      } else if (!value.block->isAlive()) {
        account.report("the result was released before it was returned");
      } else {
        outcome.result = block(value.block->contents.view());
        host.release(value.block);
      }
      break;
    case Type::kInteger:
      if (value.integer != static_cast<std::int32_t>(value.integer)) account.report("the result has more than 32 bits");
      outcome.result = std::int64_t{value.integer};
      break;
    case Type::kDouble:
      outcome.result = value.number;
      break;
    case Type::kBoolean:
      if (value.boolean > 1) account.report("a boolean is 0 or 1");
      outcome.result = value.boolean != 0;
      break;
  }
}

/// Closes the account into what the caller sees.
void settle(Account& account, Outcome& outcome) {
  if (const ExceptionObject* raised = account.raised()) outcome.exception = raised->raised;
  account.close();
  outcome.services.reserve(account.services.size());
  for (const ServiceUse& use : account.services) outcome.services.emplace_back(nameOf(use.service));
  outcome.lookups = std::move(account.lookups);
  outcome.violations = std::move(account.violations);
  outcome.balanced = outcome.violations.empty();
}

}  // namespace

Session::Session(const std::filesystem::path& plugin, const Options& options)
    : host_(options),
      library_(plugin, options.loadsInPlace ? PluginLibrary::How::kInPlace : PluginLibrary::How::kFreshCopy) {
  auto* const start = reinterpret_cast<StartFunction*>(library_.function("REALPluginMain"));
  Account account(host_);
  start(&Host::resolve);
  settle(account, start_);
  for (const MethodEntry& entry : host_.registration().methods) {
    const auto declaration = parseDeclaration(entry.declaration);
    const Invoker invoker = declaration ? invokerFor(*declaration) : nullptr;
    if (invoker == nullptr) throw std::runtime_error(std::string("cannot be called: ") + entry.declaration);
    methods_.push_back({entry, *declaration, invoker});
  }
}

const Method& Session::method(std::string_view name, std::size_t argumentCount) const {
  const Method* best = nullptr;
  bool isKnown = false;
  for (const Method& method : methods_) {
    if (method.declaration.name != name) continue;
    isKnown = true;
    if (!method.declaration.accepts(argumentCount)) continue;
    // An overload with exactly these parameters goes before one that has defaults for more.
    if (best == nullptr || method.declaration.parameters.size() < best->declaration.parameters.size()) best = &method;
  }
  if (best != nullptr) return *best;
  throw std::invalid_argument(
      std::string(name) +
      (isKnown ? " does not take " + std::to_string(argumentCount) + " arguments" : ": no such method"));
}

Outcome Session::call(std::string_view name, const std::vector<Argument>& arguments) {
  return call(method(name, arguments.size()), arguments);
}

Outcome Session::call(const Method& method, const std::vector<Argument>& arguments) {
  Outcome outcome;
  Account account(host_);
  Arguments handles(host_, method, arguments);
  const Value result = method.invoke(method.entry.function, handles.data());
  outcome.sameAsArgument = handles.indexOf(result);
  takeResult(account, method.declaration.result, result, outcome);
  outcome.calls = transcript(account.services, handles.things(), thingOf(result));
  handles.release(account);
  settle(account, outcome);
  return outcome;
}

}  // namespace standin
