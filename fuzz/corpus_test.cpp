/// Replays the kept inputs of the fuzzers, with any compiler and on any platform.
#include <doctest/doctest.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "fuzz/trial.h"

namespace fs = std::filesystem;

namespace {

std::string contentsOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::string complaintAbout(const std::string& method, const std::string& input) {
  const fuzz::Trial trial =
      fuzz::readTrial(method, {reinterpret_cast<const std::uint8_t*>(input.data()), input.size()});
  const std::string complaint = fuzz::complaintAbout(trial);
  return complaint.empty() ? complaint : complaint + "\n" + fuzz::describe(trial);
}

}  // namespace

TEST_CASE("the kept inputs give what the plain twins give, and every method has some") {
  std::set<std::string> known;
  const standin::Session session;
  for (const standin::Method& method : session.methods()) known.insert(method.declaration.name);
  std::set<std::string> tried;
  for (const fs::directory_entry& folder : fs::directory_iterator(FUZZ_CORPUS)) {
    const std::string method = folder.path().filename().string();
    for (const fs::directory_entry& file : fs::directory_iterator(folder)) {
      CAPTURE(file.path().string());
      CHECK(complaintAbout(method, contentsOf(file.path())) == "");
      tried.insert(method);
    }
  }
  CHECK(tried == known);
}
