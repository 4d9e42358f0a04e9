/// A session: one plugin, freshly loaded, in one host.
#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

#include "standin/call.h"
#include "standin/declaration.h"
#include "standin/host.h"
#include "standin/options.h"
#include "standin/plugin_library.h"
#include "standin/values.h"

namespace standin {

/// A method as the plugin registered it.
struct Method {
  MethodEntry entry;
  Declaration declaration;
  Invoker invoke;
};

/// Any number of sessions may live at once, and several threads may call through one of them.
class Session {
 public:
  /// Loads the plugin and lets it register. Throws `std::runtime_error` for a file that isn't a plugin or registers
  /// what the host cannot call, `std::invalid_argument` for options that name unknown services.
  explicit Session(const std::filesystem::path& plugin, const Options& options = {});

#ifdef STRING_PLUGIN_FILE
  /// The plugin this build makes.
  explicit Session(const Options& options = {}) : Session(std::filesystem::path(STRING_PLUGIN_FILE), options) {}
#endif

  /// Calls a method. The overload is chosen by the number of arguments, missing trailing ones take their declared
  /// defaults. Throws `std::invalid_argument` where the method or its arguments don't fit.
  Outcome call(std::string_view method, const std::vector<Argument>& arguments);

  /// Calls this very method.
  Outcome call(const Method& method, const std::vector<Argument>& arguments);

  /// All overloads, in the order of registration.
  [[nodiscard]] const std::vector<Method>& methods() const noexcept { return methods_; }

  /// The overload a call with so many arguments means. Throws `std::invalid_argument` where there is none.
  [[nodiscard]] const Method& method(std::string_view name, std::size_t argumentCount) const;

  /// What the plugin did when it was loaded; without a result.
  [[nodiscard]] const Outcome& start() const noexcept { return start_; }

  [[nodiscard]] Host& host() noexcept { return host_; }
  [[nodiscard]] const PluginLibrary& library() const noexcept { return library_; }

 private:
  Host host_;
  PluginLibrary library_;
  Outcome start_;
  std::vector<Method> methods_;
};

}  // namespace standin
