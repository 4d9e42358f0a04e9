/// What the plugin tells the host when it is loaded.
#include <cstdlib>
#include <cstring>
#include <map>

#include "tests/support/methods.h"

using namespace testing;

namespace {

struct Generation {
  double version;
  bool reportsVersion;
  HostInteger controlVersion;
  bool asModule;
};

constexpr Generation kGenerations[] = {
    {2023.1, false, 9, false},  // the host doesn't tell its version
    {2011.04, true, 9, false}, {2012.0, true, 10, false}, {2012.99, true, 10, false}, {2013.0, true, 11, true},
    {2013.03, true, 12, true}, {2013.04, true, 13, true}, {2015.02, true, 13, true},  {2015.03, true, 13, true},
    {2016.0, true, 13, true},  {2023.1, true, 13, true},  {2999.9, true, 13, true},   {3000.0, true, 13, false},
};

Options optionsOf(const Generation& generation) {
  return {.version = generation.version, .reportsVersion = generation.reportsVersion};
}

}  // namespace

TEST_CASE("each generation of hosts gets its control version and its way of registration") {
  for (const Generation& generation : kGenerations) {
    CAPTURE(generation.version);
    Session session(optionsOf(generation));
    const Registration& registration = session.host().registration();
    CHECK(registration.controlVersions == std::vector{generation.controlVersion});
    REQUIRE(registration.modules.size() == (generation.asModule ? 1 : 0));
    REQUIRE(registration.methods.size() == 50);
    for (const MethodEntry& entry : registration.methods) {
      CHECK(entry.flags == (generation.asModule ? 20 : 4));
      CHECK((entry.setter == nullptr));
      CHECK(entry.attributeCount == 0);
      CHECK(entry.attributes == nullptr);
    }
    if (!generation.asModule) continue;
    const ModuleRecord& module = *registration.modules[0];
    CHECK(module.version == generation.controlVersion);
    CHECK(std::string_view(module.name) == "StringGlobalsZQV");
    CHECK(module.methodCount == 50);
    for (const std::uintptr_t word : module.unused) CHECK(word == 0);
  }
}

TEST_CASE("methods come in the same order both ways, overloads from many parameters to few") {
  Session asModule({.version = 2023.1});
  Session oneByOne({.version = 3000.0});
  std::vector<std::string> names;
  for (std::size_t i = 0; i < 50; ++i) {
    CHECK(std::string_view(asModule.methods()[i].entry.declaration) == oneByOne.methods()[i].entry.declaration);
    names.push_back(asModule.methods()[i].declaration.name);
  }
  CHECK(names.front() == "EncodeEmailSubjectZQV");
  CHECK(names[25] == "DecodingFromXMLZQV");
  CHECK(names.back() == "SQLReplaceBooleanZQV");
  for (std::size_t i = 44; i < 49; ++i) {
    CHECK(names[i] == "ConcatBinaryStringsZQV");
    CHECK(asModule.methods()[i].declaration.parameters.size() == 50 - i);
  }
  CHECK((asModule.methods()[23].entry.function.entry == asModule.methods()[25].entry.function.entry));
}

TEST_CASE("services of the start are asked for once, in order") {
  using Names = std::vector<std::string>;
  Session modern({.version = 2023.1});
  CHECK(modern.start().lookups ==
        Names{"REALGetRBVersion", "RegisterPluginVersion", "REALinRuntime", "PluginRegisterModule"});
  CHECK(modern.start().services == modern.start().lookups);
  Session old({.version = 2011.04});
  CHECK(old.start().lookups ==
        Names{"REALGetRBVersion", "RegisterPluginVersion", "REALinRuntime", "PluginRegisterMethod"});
}

TEST_CASE("without the registering service nothing is registered, and one by one every entry asks again") {
  Session modern({.version = 2023.1, .without = {"PluginRegisterModule"}});
  CHECK(modern.methods().empty());
  Session old({.version = 2011.04, .without = {"PluginRegisterMethod"}});
  CHECK(old.methods().empty());
  CHECK(old.host().lookups("PluginRegisterMethod") == 50);
}

TEST_CASE("other services missing at the start don't matter") {
  Session session({.without = {"REALinRuntime", "RegisterPluginVersion"}});
  CHECK(session.methods().size() == 50);
}

TEST_CASE("the random generator is seeded in built applications only") {
  const auto sequenceAfterStart = [](bool running) {
    std::srand(20);
    const Session session(Options{.running = running});
    return std::rand();
  };
  std::srand(20);
  const int untouched = std::rand();
  CHECK(sequenceAfterStart(false) == untouched);
  CHECK(sequenceAfterStart(true) != untouched);
}
