#include "stringhost/tour.h"

#include <ostream>
#include <sstream>

#include "stringhost/shell_words.h"
#include "stringhost/stringhost.h"

namespace stringhost {

const std::vector<Stop>& tourStops() {
  static const std::vector<Stop> kStops = {
      {"Text is made safe for a page, and read back.",
       "call EncodingToHTMLZQV '<b>Tom & J\u00E9r\u00F4me</b>, 5 \u20AC'"},
      {"", "call DecodingFromHTMLZQV '&lt;b&gt;Tom &amp; J&eacute;r&ocirc;me&lt;/b&gt;, 5 &#8364;'"},
      {"What mail and the web expect.", "call EncodeEmailSubjectZQV 'Gr\u00FC\u00DFe aus K\u00F6ln'"},
      {"", "call EncodingToURLZQV 'caf\u00E9 & more'"},
      {"Bytes go in and come out as hex where they aren't text.", "call StringXORZQV hex:00FF00FF hex:0F"},
      {"How far apart are two words?", "call LevenshteinDistanceZQV kitten sitting"},
      {"", "call JaroWinklerDistanceZQV MARTHA MARHTA"},
      {"A string knows its encoding; json shows all there is to know of a result.",
       "call UnicodeStringZQV \u00E9 --output json"},
      {"An old host, and text in the encoding of its time.",
       "call NativeStringZQV hex:8E --encoding macroman --host-version 2011"},
  };
  return kStops;
}

int tour(const std::vector<std::string>& globals, std::ostream& out, std::ostream& err) {
  int status = kDone;
  out << "stringhost plays the host for the plugin: it loads the file, offers the host's services\n"
         "and calls the methods the plugin registers.\n";
  for (const Stop& stop : tourStops()) {
    if (*stop.remark != '\0') out << '\n' << stop.remark << '\n';
    out << "$ stringhost " << stop.command << '\n';
    std::vector<std::string> words = globals;
    const auto command = shellWords(stop.command).value();
    words.insert(words.end(), command.begin(), command.end());
    std::istringstream nothing;
    std::ostringstream shown;
    const int result = run(words, nothing, shown, err, true);
    out << shown.str();
    if (!out.flush()) break;
    if (status == kDone) status = result;
  }
  out << "\nHow to go on:\n"
         "  stringhost list                        every method\n"
         "  stringhost list html                   those with html in their names\n"
         "  stringhost call --help                 all about arguments and results\n"
         "  stringhost call RemoveHTMLTagsZQV @page.html > page.txt\n";
  return status;
}

}  // namespace stringhost
