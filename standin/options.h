/// How a stand-in host behaves: which version it is, what it offers, how it lays out what it hands to the plugin.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace standin {

/// Services go by the name they are looked up under; "LenB" stands for the global method of that name.
struct Options {
  double version = 2023.1;
  bool reportsVersion = true;  ///< false: the host has no "REALGetRBVersion"
  bool running = false;        ///< whether a built application runs, rather than the development environment

  std::vector<std::string> without = {};  ///< services the host does not offer
  std::map<std::string, int> failing =
      {};  ///< the number of the call, from 1, that answers null, 0 or false; 0: every call

  bool terminated = true;      ///< converted forms end in a zero unit; false: in one that is not zero
  bool byteOrderMark = false;  ///< text converted to UTF-16 or UTF-32 begins with U+FEFF
  bool swapped = false;        ///< text converted to UTF-16 or UTF-32 has the other byte order
  bool oddStorage = false;     ///< contents of strings begin at an odd address

  /// Contents end at a page that cannot be read and cannot be written themselves. A string on a host below 2016.0
  /// and a converted form are followed by exactly one unit that can be read (see `terminated`).
  bool checking = false;

  /// Services that give this answer whatever they are asked: "LenB", "memoryBlockGetSize", "REALGetStringEncoding".
  std::map<std::string, std::int64_t> answers = {};
  bool recordsWithoutData = false;  ///< "PluginGetStringData" answers true, with a null pointer and a length

  /// The exception classes the host can make.
  std::vector<std::string> classes = {"OutOfMemoryException", "OutOfBoundsException", "IllegalCastException",
                                      "RuntimeException"};

  bool logs = true;           ///< lookups and calls of services are recorded by name
  bool loadsInPlace = false;  ///< the plugin file itself is loaded, instead of a fresh copy
};

}  // namespace standin
