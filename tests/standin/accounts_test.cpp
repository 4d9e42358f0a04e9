/// The host's accounts and settings, shown on a plugin that breaks the rules.
#include <csignal>
#include <doctest/doctest.h>

#include "tests/support/methods.h"
#include "tests/support/skipped.h"

#if defined(__unix__) || defined(__APPLE__)
#define HAS_FORK
#include <sys/wait.h>
#include <unistd.h>
#endif

using namespace testing;

namespace {

Outcome clumsy(const Options& options, std::string_view method, const Argument& argument = utf8("abc")) {
  Session session(CLUMSY_PLUGIN_FILE, options);
  return session.call(method, {argument});
}

std::string violations(std::string_view method, const Argument& argument = utf8("abc")) {
  const Outcome outcome = clumsy({}, method, argument);
  CHECK(outcome.balanced == outcome.violations.empty());
  return violationsOf(outcome);
}

TEST_CASE("what a plugin leaks or releases twice is reported") {
  CHECK(violations("keepsAReference") == "argument 1: references taken less references dropped: 1\n");
  CHECK(violations("forgetsAString") == "string of 9 bytes in encoding 0xFFFF leaked, with references: 1\n");
  CHECK(violations("dropsTheArgument") == "argument 1: references taken less references dropped: -1\n");
  CHECK(violations("returnsWithoutAReference") == "argument 1: references taken less references dropped: -1\n");
  CHECK(violations("returnsTheArgument") == "");
  CHECK(violations("releasesTwice") == "REALUnlockString: the string was released before\n");
  CHECK(violations("forgetsARecord") == "record of 6 bytes leaked, with references: 1\n");
  CHECK(violations("disposesTwice") == "PluginDisposeStringData: the record was given back before\n");
  CHECK(violations("disposesAnEmptyRecord") == "PluginDisposeStringData: the host never filled the record\n");
  CHECK(violations("marksASharedString") == "REALSetStringEncoding: a string that others hold, too, is immutable\n");
  CHECK(violations("forgetsABlock", nilBlock()) == "memory block of 3 bytes leaked, with references: 1\n");
  CHECK(violations("isTwo") == "a boolean is 0 or 1\n");
  if (sizeof(HostInteger) == 8) CHECK(violations("exceeds32Bits") == "the result has more than 32 bits\n");
}

TEST_CASE("the argument's own handle is recognised") {
  CHECK(clumsy({}, "returnsTheArgument").sameAsArgument == 0);
  CHECK(clumsy({}, "form").sameAsArgument == -1);
}

TEST_CASE("every session has a plugin of its own, until its end") {
  Session first(CLUMSY_PLUGIN_FILE);
  CHECK(first.call("counts", {nullText()}).integer() == 1);
  Session second(CLUMSY_PLUGIN_FILE);
  CHECK(second.call("counts", {nullText()}).integer() == 1);
  CHECK(first.call("counts", {nullText()}).integer() == 2);
  CHECK(first.host().alive() == 0);
}

TEST_CASE("converted forms are dressed as the options say") {
  const Text a = utf8("a");
  CHECK(clumsy({}, "form", a).text().bytes == "a\0"s);
  CHECK(clumsy({.byteOrderMark = true}, "form", a).text().bytes == "\xFF\xFE"s + "a\0"s);
  CHECK(clumsy({.swapped = true}, "form", a).text().bytes == "\0a"s);
  CHECK(clumsy({.byteOrderMark = true, .swapped = true}, "form", a).text().bytes == "\xFE\xFF\0a"s);
  for (const bool checking : {false, true}) {
    CHECK(clumsy({.checking = checking}, "readsBehindForm", a).integer() == 0);
    CHECK(clumsy({.terminated = false, .checking = checking}, "readsBehindForm", a).integer() != 0);
  }
  CHECK(clumsy({.recordsWithoutData = true}, "form", a).text() == nullText());
}

TEST_CASE("the structure can be read below 2016.0 and is poisoned from then on") {
  for (const bool odd : {false, true}) {
    for (const bool checking : {false, true}) {
      const Options options{.version = 2015.4, .oddStorage = odd, .checking = checking};
      CHECK(clumsy(options, "structure", utf8("abc")).text().bytes == "abc");
      if (odd || !checking) CHECK(clumsy(options, "isAtOddAddress", utf8("abc")).integer() == (odd ? 1 : 0));
    }
  }
  CHECK(clumsy({.version = 2015.4}, "readsTheLength").integer() == 3);
  CHECK(clumsy({.version = 2016.0}, "readsTheLength").integer() > 1'000'000'000);
}

TEST_CASE("services are absent, fail or answer as the options say, and are logged") {
  Session without({.without = {"REALConvertString"}});
  CHECK(without.call("NativeStringZQV", {utf8("a")}).text() == nullText());
  const Outcome again = without.call("NativeStringZQV", {utf8("a")});
  CHECK(again.lookups == std::vector{"REALConvertString"s});
  CHECK(again.services.empty());
  CHECK(without.host().lookups("REALConvertString") == 2);

  Session second({.failing = {{"REALConvertString", 2}}});
  CHECK(second.call("NativeStringZQV", {utf8("a")}).services == std::vector{"REALConvertString"s});
  CHECK(second.call("NativeStringZQV", {utf8("a")}).text() == nullText());
  CHECK(second.call("NativeStringZQV", {utf8("a")}).text() == utf8("a"));
  CHECK(second.host().lookups("REALConvertString") == 1);
  CHECK(call({.failing = {{"REALConvertString", 0}}}, "NativeStringZQV", {utf8("a")}).text() == nullText());

  CHECK(call({.logs = false}, "NativeStringZQV", {utf8("a")}).services.empty());
  CHECK_THROWS_AS(Session({.without = {"REALLockStrings"}}), std::invalid_argument);
}

TEST_CASE("missing arguments take their defaults, and what doesn't fit is refused") {
  Session session(CLUMSY_PLUGIN_FILE);
  CHECK(session.call("showsArguments", {}).text().bytes == "true");
  CHECK(session.call("showsArguments", {-3, false}).text().bytes == "false");
  CHECK(session.call("showsArguments", {4}).text().bytes == "another number");
  CHECK_THROWS_AS(session.call("showsArguments", {1, true, 2}), std::invalid_argument);
  CHECK_THROWS_AS(session.call("showsArguments", {utf8("1")}), std::invalid_argument);
  CHECK_THROWS_AS(session.call("unheardOf", {}), std::invalid_argument);
  CHECK_THROWS_AS(Session("no such file"), std::runtime_error);
}

#ifdef HAS_FORK
/// Whether the call ends the process. It runs in a child.
bool crashes(const Options& options, std::string_view method) {
  const pid_t child = fork();
  if (child == 0) {
    close(STDERR_FILENO);
    std::signal(SIGSEGV, SIG_DFL);
    try {
      clumsy(options, method);
    } catch (...) {
    }
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return status != 0;
}
#endif

TEST_CASE("in checking mode reading behind the contents and writing them faults") {
#ifndef HAS_FORK
  skipped("a fault can't be tried out in a process of its own");
#else
  CHECK(crashes({.checking = true}, "readsBehindContents"));
  CHECK(crashes({.checking = true}, "writesContents"));
  CHECK_FALSE(crashes({.checking = true}, "readsBehindForm"));
  CHECK_FALSE(crashes({.version = 2015.4, .checking = true}, "readsBehindContents"));
  CHECK_FALSE(crashes({}, "writesContents"));
  CHECK(crashes({}, "structure"));
#endif
}

}  // namespace
