/// The command line, run in this process: what is printed where, and the exit status.
#include "stringhost/stringhost.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <doctest/doctest.h>
#include <filesystem>
#include <fstream>
#include <istream>
#include <new>
#include <nlohmann/json.hpp>
#include <sstream>
#include <streambuf>

#include "standin/session.h"
#include "stringhost/nearest.h"
#include "stringhost/progress.h"
#include "stringhost/shell_words.h"
#include "stringhost/timing.h"

using namespace std::string_literals;

namespace stringhost {
namespace {

using Words = std::vector<std::string>;

struct Run {
  std::string out;
  std::string err;
  int status;

  bool operator==(const Run&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Run& run) {
  return out << "out: " << run.out << "\nerr: " << run.err << "\nstatus: " << run.status;
}

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

/// Runs on the plugin of the accounts' tests, which has methods of every type, or on the one of this build.
Run ran(const Words& words, bool terminal = false, const std::string& input = {},
        const char* plugin = CLUMSY_PLUGIN_FILE) {
  std::istringstream in(input);
  std::ostringstream out;
  std::ostringstream err;
  Words all = {"--plugin", plugin};
  all.insert(all.end(), words.begin(), words.end());
  const int status = run(all, in, out, err, terminal);
  return {out.str(), err.str(), status};
}

Run ranOnBuilt(const Words& words, bool terminal = false, const std::string& input = {}) {
  return ran(words, terminal, input, STRING_PLUGIN_FILE);
}

/// A file of this name, as long as the test runs.
class File {
 public:
  File(const char* name, const std::string& bytes) : name_(name) { std::ofstream(name, std::ios::binary) << bytes; }
  ~File() { std::remove(name_); }

 private:
  const char* name_;
};

/// The first bytes of a plugin file.
std::string beginningOf(const char* plugin, std::size_t count) {
  std::ifstream file(plugin, std::ios::binary);
  std::string bytes(count, '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(count));
  return bytes;
}

TEST_CASE("wrong usage is one line, a hint where there is one, and status 2") {
  const char* const kNoLibrary = "stringhost_test.text";
  const char* const kHalf = "stringhost_test.half";
  const File noLibrary(kNoLibrary, "text");
  const char* const kAlmost = "stringhost_test.almost";
  // The last few bytes of a DLL may be names that the loader doesn't ask for.
  const auto shortenedSize = static_cast<std::size_t>(std::filesystem::file_size(STRING_PLUGIN_FILE)) - 512;
  const File half(kHalf, beginningOf(STRING_PLUGIN_FILE, 4000));
  const File almost(kAlmost, beginningOf(STRING_PLUGIN_FILE, shortenedSize));
  const struct {
    Words words;
    std::string line;
    std::string hint;
  } kCases[] = {
      {{}, "no command given", "stringhost --help shows them"},
      {{"lst"}, "no such command: lst", "did you mean list?"},
      {{"call"}, "call needs the name of a method", "stringhost list shows them"},
      {{"call", "half", "--outptu", "hex"}, "no such option: --outptu", "did you mean --output?"},
      {{"--versio"}, "no such option: --versio", "did you mean --version?"},
      {{"explain", "half", "--repeat", "3"}, "explain has no option --repeat", "stringhost explain --help shows them"},
      {{"list", "--outptu"}, "no such option: --outptu", "stringhost list --help shows them"},
      {{"--json", "list"}, "--json goes after list", ""},
      {{"call", "half", "--output"}, "--output needs a value", "stringhost call --help says more"},
      {{"help", ""}, "no such method: ''", "stringhost list shows all"},
      {{"call", "half", "--output", "hexx"}, "no such form of output: hexx", "did you mean hex?"},
      {{"call", "half", "--encoding", "latin"},
       "no such encoding: latin",
       "there are utf-8, ascii, utf-16, utf-32, macroman, windows-1252, none"},
      {{"call", "half", "--without", "REALLockStrings"},
       "no such service: REALLockStrings",
       "did you mean REALLockString?"},
      {{"call", "half", "--host-version", "new"},
       "--host-version: 'new' is no version of the host (0 to 1000000)",
       "stringhost call --help says more"},
      {{"--plugin", "", "list"}, "--plugin: the name of the file is empty", ""},
      {{"call", "halve", "a", "b"}, "no such method: halve", "did you mean half?"},
      {{"call", "entirelyElse"}, "no such method: entirelyElse", "stringhost list shows all"},
      {{"call", "\x1B[31m\u009B\u202E\n"},
       R"(no such method: \u001B[31m\u009B\u202E\u000A)",
       "stringhost list shows all"},
      {{"call", std::string(183, 'x') + "\u00E9" + std::string(999, 'y')},
       "no such method: " + std::string(183, 'x') + "\u2026" + std::string(100, 'y'),
       "stringhost list shows all"},
      {{"call", "showsArguments", "1", "true", "x"},
       "showsArguments takes 0 to 2 arguments, not 3",
       "stringhost help showsArguments says which"},
      {{"call", "showsArguments", "x"}, "'x' is not an integer of 32 bits, as number has to be", ""},
      {{"call", "showsArguments", "2147483648"}, "'2147483648' is out of range for number, an integer of 32 bits", ""},
      {{"call", "showsArguments", "1", "maybe"}, "'maybe' is not true or false, as flag has to be", ""},
      {{"call", "isNegative", "1e309"}, "'1e309' is out of range for d, a double", ""},
      {{"call", "isNull", "hex:4G"}, "hex:4G: 'G' is no hex digit", ""},
      {{"call", "isNull", "hex:414"}, "hex:414: two hex digits make a byte, one is missing", ""},
      {{"call", "isNull", "@no such file"}, "no such file: cannot be read: No such file or directory", ""},
      {{"call", "isNull", "@."}, ".: is a directory", ""},
      {{"call", "half", "-", "-"}, "standard input can be read once; only one argument can be -", ""},
      {{"list", "a", "b"}, "one argument too many: b", ""},
      {{"list", "halve"}, "no method matches: halve", "did you mean half?"},
      {{"list", "--plugin", "nowhere.so"}, "nowhere.so: no such file", ""},
      {{"list", "--plugin", kNoLibrary}, kNoLibrary + ": is no library for this platform"s, ""},
      {{"list", "--plugin", kHalf}, kHalf + ": is cut short: its headers speak of more than its 4000 bytes"s, ""},
      {{"list", "--plugin", kAlmost},
       kAlmost + ": is cut short: its headers speak of more than its "s + std::to_string(shortenedSize) + " bytes",
       ""},
  };
  for (const auto& c : kCases) {
    CAPTURE(c.line);
    CHECK(ran(c.words) == Run{"", "stringhost: " + c.line + "\n" + (c.hint.empty() ? "" : c.hint + "\n"), kUsage});
  }
}

TEST_CASE("the forms of an argument") {
  const File file("stringhost_test.txt", "\xFF\n");
  const struct {
    std::string argument;
    std::string bytes;
  } kCases[] = {
      {"plain \u00E9", "plain \u00E9"},
      {"++", "++"},
      {"-5", "-5"},
      {"-5 apples", "-5 apples"},
      {"hex:c3A9", "\u00E9"},
      {"hex:", ""},
      {"text:@x", "@x"},
      {"text:", ""},
      {"@stringhost_test.txt", "\xFF\n"},
      {"-", "typed\0in"s},
      {"nil", "nil"},
      {"", ""},
  };
  for (const auto& c : kCases) {
    CAPTURE(c.argument);
    CHECK(ran({"call", "returnsTheArgument", c.argument}, false, "typed\0in"s).out == c.bytes);
    if (c.argument != "nil") {
      CHECK(ran({"call", "returnsTheBlock", c.argument}, false, "typed\0in"s).out == c.bytes);
    }
  }
  CHECK(ran({"call", "returnsTheArgument", "--", "--output"}).out == "--output");
  CHECK(ran({"call", "--output", "hex", "returnsTheArgument", "x"}).out == "78");
  CHECK(ran({"call", "kindOf", "hex:"}).out == "empty");
  CHECK(ran({"call", "kindOf", ""}).out == "null");
  CHECK(ran({"call", "isNegative", "-1.5"}).out == "yes");
  CHECK(ran({"call", "showsArguments", "-3", "FALSE"}).out == "false");
  CHECK(ran({"call", "SHOWSARGUMENTS"}).out == "true");
}

TEST_CASE("text is converted to the encoding, bytes are marked with it") {
  const auto shown = [](const char* encoding, const char* argument) {
    return ran({"call", "returnsTheArgument", argument, "--encoding", encoding, "--output", "json"}).out;
  };
  const auto json = [](const char* value, const char* hex, const char* encoding) {
    return R"({"type":"string","value":)"s + value + R"(,"hex":")" + hex + R"(","encoding":")" + encoding +
           R"(","null":false,"same_argument":1,"exception":null})" + "\n";
  };
  CHECK(shown("utf-8", "\u00E9") == json("\"\u00E9\"", "C3A9", "utf-8"));
  CHECK(shown("utf-16", "\u00E9") == json("\"\u00E9\"", "E900", "utf-16"));
  CHECK(shown("macroman", "\u00E9") == json("\"\u00E9\"", "8E", "macroman"));
  CHECK(shown("ascii", "\u00E9") == json("\"?\"", "3F", "ascii"));
  CHECK(shown("none", "\u00E9") == json("\"\u00E9\"", "C3A9", "none"));
  CHECK(shown("macroman", "hex:8E") == json("\"\u00E9\"", "8E", "macroman"));
  CHECK(shown("ascii", "hex:C3A9") == json("\"\u00E9\"", "C3A9", "ascii"));
  CHECK(shown("utf-8", "hex:FF") == json("null", "FF", "utf-8"));
}

TEST_CASE("results of every type, into a pipe and on a terminal") {
  constexpr char kNilAsJson[] =
      R"({"type":"memoryblock","value":"","hex":"","null":true,"same_argument":null,"exception":null})"
      "\n";
  const struct {
    Words words;
    std::string piped;
    std::string onTerminal;
  } kCases[] = {
      {{"call", "returnsTheArgument", "x\n"}, "x\n", "x\n\n"},
      {{"call", "returnsTheArgument", "hex:00FF"}, "\0\xFF"s, "hex:00FF\n"},
      {{"call", "returnsTheArgument", "\u009B2J"}, "\u009B2J", "hex:C29B324A\n"},
      {{"call", "returnsTheArgument", "\u202Etxt"}, "\u202Etxt", "hex:E280AE747874\n"},
      {{"call", "returnsTheArgument", "a\u00ADb"}, "a\u00ADb", "hex:61C2AD62\n"},
      {{"call", "returnsTheArgument", "a\rb"}, "a\rb", "hex:610D62\n"},
      {{"call", "returnsTheArgument", "a\r\n\u05D0\t"}, "a\r\n\u05D0\t", "a\r\n\u05D0\t\n"},
      {{"call", "returnsTheArgument", "\u00E9", "--encoding", "utf-16"}, "\xE9\0"s, "\u00E9\n"},
      {{"call", "returnsTheArgument", "\u00E9", "--encoding", "utf-16", "--output", "raw"}, "\xE9\0"s, "\xE9\0"s},
      {{"call", "returnsTheArgument", "\u00E9", "--output", "hex"}, "C3A9", "C3A9\n"},
      {{"call", "returnsTheBlock", "nil"}, "", ""},
      {{"call", "half", "a", "b"}, "0.5", "0.5\n"},
      {{"call", "isNull", ""}, "true", "true\n"},
      {{"call", "isAtOddAddress", "x"}, "0", "0\n"},
      {{"call", "returnsTheBlock", "nil", "--output", "json"}, kNilAsJson, kNilAsJson},
  };
  for (const auto& c : kCases) {
    CAPTURE(c.words[2]);
    CHECK(ran(c.words).out == c.piped);
    CHECK(ran(c.words, true) == Run{c.onTerminal, "", kDone});
  }
}

TEST_CASE("exceptions and broken rules go to standard error") {
  CHECK(ran({"call", "raisesTwice", "x"}) == Run{"", "OutOfMemoryException: OutOfMemoryException\n", kRaised});
  CHECK(contains(ran({"call", "raisesTwice", "x", "--output", "json"}).out,
                 R"("exception":{"class":"OutOfMemoryException","message":"OutOfMemoryException","number":7})"));
  CHECK(ran({"call", "forgetsAString", "x"}) ==
        Run{"",
            "stringhost: the plugin broke a rule of the host: string of 9 bytes in encoding 0xFFFF leaked, with "
            "references: 1\n",
            kUnbalanced});
}

TEST_CASE("the host is the one asked for") {
  CHECK(ran({"call", "readsTheLength", "abc", "--host-version", "2015.4"}).out == "3");
  CHECK(ranOnBuilt({"call", "NativeStringZQV", "abc", "--without", "REALConvertString"}).out == "");
  // Without such a service the plugin can't but break the balance.
  for (const char* service : {"REALLockString", "REALUnlockString"}) {
    CHECK(ranOnBuilt({"call", "EncodingToHexZQV", "x", "--without", service}) ==
          Run{"78", "stringhost: references don't balance, as they cannot with the services this host is without\n",
              kDone});
  }
  CHECK(ranOnBuilt({"call", "EncodingToHexZQV", "x", "--without", "PluginRegisterModule"}).err ==
        "stringhost: the plugin registered no method with this host\n");
}

TEST_CASE("a call is repeated as often as asked, and timed") {
  const Run result = ran({"call", "counts", "x", "--repeat", "100"});
  CHECK(result.out == "100");
  CHECK(result.err.find("100 calls, ") == 0);
  CHECK(contains(result.err, " ns each \u00B1 "));
  CHECK(ran({"call", "counts", "x", "--repeat", "1"}).err.find("1 call, ") == 0);
  CHECK(contains(ran({"call", "counts", "x", "--repeat", "9", "--json"}).out, R"("timing":{"calls":9,"mean_ns":)"));
}

TEST_CASE("explain shows the call as the host sees it") {
  CHECK(contains(ranOnBuilt({"explain", "NativeStringZQV", "x", "--without", "REALConvertString"}).out,
                 "Looked up\n  REALConvertString\nServices called\n  none\n"));
  const Run json = ranOnBuilt({"explain", "--json", "EncodingToHexZQV", "\u00E9"});
  CHECK(contains(json.out, R"("arguments":[{"name":"s","type":"string","value":"é","hex":"C3A9","encoding":"utf-8",)"));
  CHECK(contains(json.out, R"("result":{"type":"string","value":"C3A9",)"));
  CHECK(json.status == kDone);
  CHECK(ran({"explain", "returnsTheArgument", "x"}).out.ends_with("\"x\", argument 1 itself\n"));
  CHECK(ran({"explain", "raisesTwice", "x"}).status == kRaised);
  CHECK(ran({"explain", "forgetsAString", "x"}).status == kUnbalanced);
}

TEST_CASE("help shows the reference") {
  const Run told = ran({"help", "encodingtohexzqv"});
  CHECK(told.status == kDone);
  CHECK(told.out.starts_with("EncodingToHexZQV\n\n    EncodingToHexZQV(s as string) as string\n\nWrites the bytes"));
  CHECK_FALSE(contains(told.out, "`"));
  CHECK(contains(told.out, "\n    $ stringhost call EncodingToHexZQV"));
  CHECK(contains(told.out, "\n- Reads: bytes."));
  const std::string json = ran({"help", "--json", "_yDecodeStringZQV"}).out;
  CHECK(json.starts_with(R"({"name":"_yDecodeStringZQV","declarations":["_yDecodeStringZQV(data as string)"));
  CHECK(contains(ran({"help", "--json"}).out, "," + json.substr(0, json.size() - 1)));
  CHECK(ran({"help"}).out == ran({"--help"}).out);
  CHECK(ran({"help", "call"}).out == ran({"call", "--help"}).out);
  const standin::Session session;
  for (const standin::Method& method : session.methods()) {
    CAPTURE(method.declaration.name);
    CHECK(contains(ran({"help", method.declaration.name}).out, method.entry.declaration));
  }
}

TEST_CASE("the spread of times") {
  Timing timing;
  CHECK(timing.deviation() == 0);
  for (const double time : {2.0, 4.0, 4.0, 4.0, 5.0, 5.0, 7.0, 9.0}) timing.add(time);
  CHECK(timing.mean() == doctest::Approx(5));
  CHECK(timing.deviation() == doctest::Approx(std::sqrt(32.0 / 7)));
  CHECK(timing.least() == 2);
  CHECK(timing.most() == 9);
}

TEST_CASE("progress is shown where patience ends, and wiped out on a terminal") {
  for (const bool isInPlace : {false, true}) {
    CAPTURE(isInPlace);
    std::ostringstream err;
    {
      const Progress progress(err, "waiting", isInPlace, 7, std::chrono::milliseconds(0));
      while (!progress.isShown()) std::this_thread::yield();
    }
    const std::string line = "stringhost: waiting, 0 of 7, ";
    CHECK(err.str().find(line) == (isInPlace ? 4 : 0));
    CHECK(err.str().ends_with(isInPlace ? "\r\x1B[K" : " s so far\n"));
  }
  std::ostringstream silent;
  { const Progress progress(silent, "waiting", true, 0, std::chrono::hours(1)); }
  CHECK(silent.str().empty());
}

/// More bytes than there is memory for.
class Endless : public std::streambuf {
  std::streamsize xsgetn(char*, std::streamsize) override { throw std::bad_alloc(); }
};

TEST_CASE("what is too long, or longer than the memory, is refused in one line") {
  const File file("stringhost_test_long.bin", "x");
  std::error_code failure;
  std::filesystem::resize_file("stringhost_test_long.bin", std::uintmax_t{1} << 31, failure);
  if (!failure) {  // sparse, so that it takes no room
    CHECK(ran({"call", "isNull", "@stringhost_test_long.bin"}) ==
          Run{"", "stringhost: stringhost_test_long.bin: more than 2147483647 bytes, which is all a string can hold\n",
              kUsage});
  }
  Endless bytes;
  std::istream in(&bytes);
  in.exceptions(std::ios::badbit);
  std::ostringstream out;
  std::ostringstream err;
  CHECK(run({"--plugin", CLUMSY_PLUGIN_FILE, "call", "isNull", "-"}, in, out, err, false) == kUsage);
  CHECK(err.str() == "stringhost: not enough memory\n");
}

/// Sets a variable of the environment; empty takes it away.
void setVariable(const char* name, const char* value) {
#ifdef _WIN32
  _putenv_s(name, value);
#else
  *value == '\0' ? unsetenv(name) : setenv(name, value, 1);
#endif
}

TEST_CASE("colour is for terminals, unless it is refused") {
  const auto isColoured = [](bool terminal) {
    return contains(ran({"help", "EncodingToHexZQV"}, terminal).out, "\x1B");
  };
  setVariable("TERM", "xterm");
  setVariable("NO_COLOR", "");
  CHECK(isColoured(true));
  CHECK_FALSE(isColoured(false));
  setVariable("NO_COLOR", "1");
  CHECK_FALSE(isColoured(true));
  setVariable("NO_COLOR", "");
  setVariable("TERM", "dumb");
  CHECK_FALSE(isColoured(true));
}

/// A disk without room.
class Full : public std::streambuf {};

TEST_CASE("output that finds no room is one line and status 2") {
  for (const Words& words :
       {Words{"list"}, {"--help"}, {"help", "EncodingToHexZQV"}, {"call", "EncodingToHexZQV", "x"}, {"tour"}}) {
    CAPTURE(words[0]);
    Full full;
    std::istringstream in;
    std::ostream out(&full);
    std::ostringstream err;
    Words all = {"--plugin", STRING_PLUGIN_FILE};
    all.insert(all.end(), words.begin(), words.end());
    CHECK(run(all, in, out, err, false) == kUsage);
    CHECK(err.str().starts_with("stringhost: the output cannot be written"));
    CHECK(err.str().find('\n') + 1 == err.str().size());
  }
}

TEST_CASE("list shows what was registered") {
  CHECK(ran({"list", "half"}).out == "half(a as string, b as string) as double\n");
  CHECK(ran({"list", "IS*L"}).out == "isNull(s as string) as boolean\n");
  CHECK(ran({"list", "h?lf"}).out == ran({"list", "half"}).out);
  CHECK(nlohmann::ordered_json::parse(ran({"list", "--json", "showsArguments"}).out).dump() ==
        R"([{"name":"showsArguments",)"
        R"("declaration":"showsArguments(number as integer=-3, flag as boolean = true) as string",)"
        R"("parameters":[{"name":"number","type":"integer","default":"-3"},)"
        R"({"name":"flag","type":"boolean","default":"true"}],"result":"string"}])");
  const std::string all = ranOnBuilt({"list"}).out;
  CHECK(std::count(all.begin(), all.end(), '\n') == 50);
}

TEST_CASE("help and version") {
  CHECK(ran({"--version"}).out == "stringhost " STRINGHOST_VERSION "\n");
  for (const Words& words :
       {Words{"--help"}, {"list", "--help"}, {"explain", "--help"}, {"call", "half", "--help"}, {"tour", "--help"}}) {
    const Run result = ran(words);
    CHECK(contains(result.out, "Usage: stringhost"));
    CHECK(result.err == "");
    CHECK(result.status == kDone);
  }
}

TEST_CASE("the tour runs to its end") {
  const Run result = ranOnBuilt({"tour"});
  CHECK(result.err == "");
  CHECK(result.status == kDone);
  CHECK(contains(result.out, "$ stringhost call UnicodeStringZQV \u00E9 --output json\n{\"type\":\"string\""));
}

TEST_CASE("command lines are split as a shell splits them") {
  const auto split = [](const char* line) {
    std::string joined;
    const auto words = shellWords(line);
    if (!words) return "unclosed"s;
    for (const std::string& word : *words) joined += "<" + word + ">";
    return joined;
  };
  CHECK(split("  a  b\t") == "<a><b>");
  CHECK(split(R"(a'b c'd "e \" \x" '')") == R"(<ab cd><e " \x><>)");
  CHECK(split(R"(a\ b \' '\')") == R"(<a b><'><\>)");
  CHECK(split("'a") == "unclosed");
}

TEST_CASE("the nearest name") {
  const Words names = {
      "EncodingToHexZQV",   "EncodingToHTMLZQV", "EncodingToURLZQV", "DecodingFromURLZQV",          "_yDecodeStringZQV",
      "CountOccurancesZQV", "StringXORZQV",      "StringXOR2ZQV",    "REALBuildStringWithEncoding", "REALBuildString"};
  const struct {
    const char* name;
    const char* meant;
  } kCases[] = {
      {"encodingtohex", "EncodingToHexZQV"},
      {"EncodingToUrlZQC", "EncodingToURLZQV"},
      {"yDecodeString", "_yDecodeStringZQV"},
      {"CountOccurrences", "CountOccurancesZQV"},
      {"HTMLEncode", "EncodingToHTMLZQV"},
      {"DecodeUrl", "DecodingFromURLZQV"},
      {"xor", "StringXORZQV"},
      {"BuildStringWith", "REALBuildStringWithEncoding"},
      {"banana", nullptr},
      {"", nullptr},
  };
  for (const auto& c : kCases) {
    CAPTURE(c.name);
    CHECK(hintFor(c.name, names) == (c.meant == nullptr ? "" : "did you mean "s + c.meant + "?"));
  }
  CHECK(hintFor("x", {}) == "");
}

}  // namespace
}  // namespace stringhost
