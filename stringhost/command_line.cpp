#include "stringhost/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <cstdint>
#include <system_error>
#include <utility>

#include "standin/options.h"
#include "standin/service_names.h"
#include "stringhost/arguments.h"
#include "stringhost/encoding_names.h"
#include "stringhost/nearest.h"
#include "stringhost/numbers.h"
#include "stringhost/usage_error.h"

namespace stringhost {
namespace {

/// Put in front of what must not be taken for anything but an argument: the parser would find options in a number,
/// commands in a word and lists in brackets.
constexpr char kShield = '\x01';

constexpr std::pair<const char*, Form> kForms[] = {
    {"text", Form::kText}, {"hex", Form::kHex}, {"json", Form::kJson}, {"raw", Form::kRaw}};
const std::vector<std::string> kCommands = {"list", "call", "explain", "help", "tour"};
const std::vector<std::string> kOptions = {"--host-version", "--encoding", "--without", "--output", "--repeat",
                                           "--plugin",       "--json",     "--help",    "--version"};
const std::vector<std::string> kFlags = {"--json", "--help", "-h", "--version"};

bool contains(const std::vector<std::string>& words, const std::string& word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

bool isNumber(const std::string& word) {
  double number = 0;
  const auto [end, error] = numbers::read(word.data(), word.data() + word.size(), number);
  return error != std::errc::invalid_argument && end == word.data() + word.size();
}

/// "-" and a letter, or "--"; "-5 apples" is an argument, and so is "-inf".
bool isOption(const std::string& word) {
  if (word.size() < 2 || word[0] != '-') return false;
  const bool isName = word[1] == '-' || std::isalpha(static_cast<unsigned char>(word[1])) != 0;
  return isName && !isNumber(word);
}

std::string optionNameIn(const std::string& word) { return word.substr(0, word.find('=')); }

/// The words with everything shielded that is neither an option, nor its value, nor the command.
std::vector<std::string> shielded(const std::vector<std::string>& words) {
  std::vector<std::string> result;
  bool hasCommand = false;
  bool hasOptions = true;
  for (std::size_t index = 0; index < words.size(); ++index) {
    const std::string& word = words[index];
    if (hasOptions && word == "--") {
      hasOptions = false;
    } else if (hasOptions && isOption(word)) {
      result.push_back(word);
      const bool takesValue = !contains(kFlags, word) && word.find('=') == std::string::npos;
      if (takesValue && index + 1 < words.size()) result.push_back(words[++index]);
    } else if (!hasCommand) {
      if (!contains(kCommands, word)) refuseUnknown("command", word, kCommands, "stringhost --help shows them");
      result.push_back(word);
      hasCommand = true;
    } else {
      result.push_back(kShield + word);
    }
  }
  return result;
}

std::string unshielded(std::string text) {
  std::erase(text, kShield);
  return text;
}

/// The value of `name` in a table of names and values.
template <typename Table>
auto valueNamed(const Table& table, const std::string& name, const std::string& what) {
  std::vector<std::string> names;
  std::string all;
  for (const auto& [known, value] : table) {
    if (name == known) return value;
    names.emplace_back(known);
    all += (all.empty() ? "" : ", ") + names.back();
  }
  refuseUnknown(what, name, names, "there are " + all);
}

/// Refuses what is no number of that range.
template <typename Number>
CLI::Validator checked(Number least, Number most, const std::string& what) {
  const auto check = [=](const std::string& word) -> std::string {
    const auto number = numbers::parse<Number>(word);
    if (number && *number >= least && *number <= most) return {};
    return "'" + word + "' is no " + what + " (" + std::to_string(static_cast<std::int64_t>(least)) + " to " +
           std::to_string(static_cast<std::int64_t>(most)) + ")";
  };
  return CLI::Validator(check, "");
}

void checkServices(const std::vector<std::string>& services) {
  for (const std::string& name : services) {
    if (standin::serviceNamed(name)) continue;
    refuseUnknown("service", name, {standin::kServiceNames.begin(), standin::kServiceNames.end()});
  }
}

/// The commands, their options and their help; what is parsed goes to `line`.
class Parser {
 public:
  explicit Parser(CommandLine& line) : line_(line) {
    app_.option_defaults()->take_last();
    app_.set_version_flag("--version", "stringhost " STRINGHOST_VERSION);
    app_.add_option("--plugin", line_.plugin, "The plugin, instead of the one built beside this program")
        ->type_name("FILE");
    app_.require_subcommand(1);
    app_.get_formatter()->label("REQUIRED", "");
    app_.footer("Begin with: stringhost tour");
    addList();
    addCall();
    addExplain();
    addHelp();
    app_.add_subcommand("tour", "Show a few real calls")->fallthrough();
  }

  void parse(const std::vector<std::string>& arguments) {
    std::vector<std::string> words = shielded(arguments);
    std::reverse(words.begin(), words.end());
    try {
      app_.parse(words);
    } catch (const CLI::CallForHelp&) {
      line_.reply = help();
    } catch (const CLI::CallForVersion& version) {
      line_.reply = std::string(version.what()) + "\n";
    } catch (const CLI::ExtrasError&) {
      refuseExtraOptions();
      throw UsageError("one argument too many: " + unshielded(app_.remaining(true).front()));
    } catch (const CLI::RequiredError&) {
      refuseExtraOptions();
      if (app_.get_subcommands().empty()) throw UsageError("no command given", "stringhost --help shows them");
      throw UsageError(app_.get_subcommands().front()->get_name() + " needs the name of a method",
                       "stringhost list shows them");
    } catch (const CLI::ParseError& error) {
      throw UsageError(wording(error.what()), helpCommand() + " says more");
    }
    if (line_.reply) return;
    if (line_.plugin && line_.plugin->empty()) throw UsageError("--plugin: the name of the file is empty");
    if (list_->parsed()) line_.command = CommandLine::Command::kList;
    if (call_->parsed()) takeCall(CommandLine::Command::kCall);
    if (explain_->parsed()) takeCall(CommandLine::Command::kExplain);
    if (help_->parsed()) takeHelp();
    if (app_.got_subcommand("tour")) line_.command = CommandLine::Command::kTour;
  }

 private:
  void addList() {
    list_ = app_.add_subcommand("list", "List the methods the plugin registers")->fallthrough();
    list_->add_option("PATTERN", line_.pattern, "A part of the name, or with * and ? the whole of it")->type_name("");
    list_->add_flag("--json", line_.asJson, "As JSON: name, declaration, parameters, result");
  }

  void addCall() {
    call_ = app_.add_subcommand("call", "Call a method and print its result")->fallthrough();
    addMethodAndHost(*call_);
    call_->add_option("--output", output_, "text, hex, json or raw")->type_name("FORM")->default_str("text");
    call_->add_flag("--json", line_.asJson, "The same as --output json");
    call_->add_option("--repeat", line_.repeat, "Call it N times and say how long a call takes")
        ->type_name("N")
        ->check(checked<int>(1, 1'000'000'000, "number of calls"));
    call_->footer(kCallHelp());
  }

  void addExplain() {
    explain_ = app_.add_subcommand("explain", "Call a method and show the call as the host sees it")->fallthrough();
    addMethodAndHost(*explain_);
    explain_->add_flag("--json", line_.asJson, "As JSON: method, arguments, services, forms, references, result");
    explain_->footer(kArgumentHelp);
  }

  void addHelp() {
    help_ = app_.add_subcommand("help", "Show what the reference says about a method")->fallthrough();
    help_->add_option("METHOD", line_.method, "Its name; without it, this program is explained")->type_name("");
    help_->add_flag("--json", line_.asJson, "As JSON: name, declarations, text (Markdown); without METHOD of all");
  }

  void addMethodAndHost(CLI::App& command) {
    command.add_option("METHOD", line_.method, "Its name, as list shows it")->type_name("")->required();
    command.add_option("ARG", line_.arguments, "An argument, see below")->type_name("")->take_all();
    command.add_option("--host-version", line_.hostVersion, "The version of the host to be played")
        ->type_name("V")
        ->check(checked<double>(0, 1e6, "version of the host"))
        ->default_val(standin::Options().version);
    command
        .add_option(
            "--encoding", encoding_,
            "How string arguments are encoded and marked: utf-8, ascii, utf-16, utf-32, macroman, windows-1252 or none")
        ->type_name("E")
        ->default_str("utf-8");
    command.add_option("--without", line_.without, "A service the host shall not offer; may be repeated")
        ->type_name("SERVICE")
        ->take_all()
        ->allow_extra_args(false);
  }

  static std::string kCallHelp() {
    return std::string(kArgumentHelp) + R"(

The result goes to standard output: into a file or a pipe byte for byte; to a
terminal with a line break, and what is not printable text as hex:C3A9. An empty
result and a nil block print nothing. A json result has the fields type, value
(text where it is text, else null), hex, encoding, null, same_argument (the number
of the argument that was itself handed back), exception (class, message, number),
and with --repeat timing.

Without a service that takes or drops references they cannot balance, which is then
not held against the plugin.

Exit status: 0 done, 1 the method raised an exception, 2 wrong usage, a file that
cannot be read or written, or not enough memory, 3 the plugin leaked or broke
another rule of the host.)";
  }

  std::string help() {
    for (CLI::App* command : {list_, call_, explain_, help_, app_.get_subcommand("tour")}) {
      if (command->parsed()) return command->help("stringhost");
    }
    return app_.help();
  }

  /// The command given; null where there is none.
  CLI::App* command() const {
    const auto commands = app_.get_subcommands();
    return commands.empty() ? nullptr : commands.front();
  }

  std::string helpCommand() const {
    return "stringhost " + (command() != nullptr ? command()->get_name() + " " : "") + "--help";
  }

  static std::string wording(const std::string& complaint) {
    const bool lacksValue = complaint.ends_with(" missing");
    return lacksValue ? complaint.substr(0, complaint.find(':')) + " needs a value" : unshielded(complaint);
  }

  /// The options there are, of the command and of all commands.
  std::vector<std::string> optionNames() const {
    std::vector<std::string> names;
    for (const CLI::App* app : {static_cast<const CLI::App*>(&app_), static_cast<const CLI::App*>(command())}) {
      if (app == nullptr) continue;
      for (const CLI::Option* option : app->get_options()) {
        for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
      }
    }
    return names;
  }

  /// Refuses the first option that is none, or is none there.
  void refuseExtraOptions() {
    const std::vector<std::string> extras = app_.remaining(true);
    const auto first = std::find_if(extras.begin(), extras.end(), isOption);
    if (first == extras.end()) return;
    const std::string option = optionNameIn(*first);
    const bool isElsewhere = contains(kOptions, option);
    if (command() == nullptr && isElsewhere) return;
    const std::vector<std::string> known = optionNames();
    if (contains(known, option)) throw UsageError(option + " goes after " + command()->get_name());
    const std::string otherwise = helpCommand() + " shows them";
    if (isElsewhere) throw UsageError(command()->get_name() + " has no option " + option, otherwise);
    refuseUnknown("option", option, known, otherwise);
  }

  void takeHelp() {
    line_.command = CommandLine::Command::kHelp;
    line_.method = unshielded(line_.method);
    const bool isGiven = help_->count("METHOD") > 0;
    if (isGiven && line_.method.empty()) refuseUnknown("method", "", {}, "stringhost list shows all");
    if (!isGiven && !line_.asJson) line_.reply = parseCommandLine({"--help"}).reply;
    if (contains(kCommands, line_.method)) line_.reply = parseCommandLine({line_.method, "--help"}).reply;
  }

  void takeCall(CommandLine::Command command) {
    line_.command = command;
    line_.method = unshielded(line_.method);
    for (std::string& argument : line_.arguments) {
      if (argument[0] != kShield) refuseUnknown("option", argument, optionNames(), helpCommand() + " shows them");
      argument.erase(0, 1);
    }
    line_.encoding = valueNamed(kEncodingNames, encoding_, "encoding");
    line_.output = valueNamed(kForms, output_, "form of output");
    if (line_.asJson) line_.output = Form::kJson;
    checkServices(line_.without);
  }

  CommandLine& line_;
  CLI::App app_{"Plays the host for a string plugin: lists its methods and calls them.", "stringhost"};
  CLI::App* list_ = nullptr;
  CLI::App* call_ = nullptr;
  CLI::App* explain_ = nullptr;
  CLI::App* help_ = nullptr;
  std::string encoding_ = "utf-8";
  std::string output_ = "text";
};

}  // namespace

CommandLine parseCommandLine(const std::vector<std::string>& arguments) {
  CommandLine line;
  Parser(line).parse(arguments);
  line.pattern = unshielded(line.pattern);
  return line;
}

}  // namespace stringhost
