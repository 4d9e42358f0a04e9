#include "bench/options.h"

#include <CLI/CLI.hpp>

#include "bench/host/plugin_file.h"

Options parsed(int argc, char** argv) {
  Options options;
  options.plugin = lean::defaultPluginFile();
  CLI::App app{"Times the plugin's methods against their peers."};
  app.add_option("filter", options.filter, "only cases that this matches, for example \"hex|URL.*64 KiB\"");
  app.add_option("--plugin", options.plugin, "the plugin file; the one of this build otherwise");
  app.add_option("--json", options.json, "write all figures here");
  app.add_option("--page", options.page, "write speed.md and its charts into this folder");
  app.add_option("--baseline", options.baseline, "compare with these figures");
  app.add_option("--new-baseline", options.newBaseline, "write figures to compare with");
  app.add_option("--size", options.sizes, "only these sizes");
  app.add_option("--rounds", options.effort.rounds, "rounds of all contenders");
  app.add_option("--seconds", options.effort.secondsEach, "of each contender in a round, at least");
  app.add_flag("--costs", options.costs, "also growth, memory and loading");
  app.add_flag("--explain", options.explain, "show where answers of peers differ, time nothing");
  app.add_flag("--quick", options.quick, "no peers, two sizes");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    std::exit(app.exit(error));
  }
  return options;
}
