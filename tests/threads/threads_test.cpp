/// Threads that call all methods at once.
#include <barrier>
#include <thread>

#include "tests/failures/calls.h"
#include "tests/support/methods.h"

using namespace testing;

namespace {

/// One call, and what it gives when nothing else runs.
struct Expected {
  const Method* method;
  std::vector<Argument> arguments;
  Result result;
};

/// The calls in a host of their own: the one the threads meet has to be cold. Its methods come in the same order.
std::vector<Expected> callsAlone(const Options& options, const Session& cold) {
  Session warm(options);
  std::vector<Expected> calls;
  for (std::size_t i = 0; i < cold.methods().size(); ++i) {
    const std::vector<Argument> arguments = failures::argumentsFor(cold.methods()[i]);
    calls.push_back({&cold.methods()[i], arguments, warm.call(warm.methods()[i], arguments).result});
  }
  return calls;
}

/// Makes all the calls, beginning with the `first`, and tells which went wrong.
std::string wrongCalls(Session& session, const std::vector<Expected>& calls, std::size_t first) {
  std::string wrong;
  for (std::size_t i = 0; i < calls.size(); ++i) {
    const Expected& expected = calls[(first + i) % calls.size()];
    const Outcome outcome = session.call(*expected.method, expected.arguments);
    const std::string& name = expected.method->declaration.name;
    const bool isRandom = name == "RandomBytesStringZQV";
    if (!isRandom && outcome.result != expected.result) wrong += name + ": another result\n";
    if (!outcome.balanced) wrong += name + ": " + violationsOf(outcome);
  }
  return wrong;
}

}  // namespace

TEST_CASE("threads that meet a cold plugin fill its slots at once and get what one alone gets") {
  constexpr std::size_t kThreads = 4;
  for (const double version : {2011.4, 2015.02, 2023.1, 3000.0}) {
    const Options options{.version = version};
    Session session(options);
    const std::vector<Expected> calls = callsAlone(options, session);
    // All begin with the same method, which no thread has called before, then go their own ways.
    std::barrier start(kThreads);
    std::vector<std::string> wrong(kThreads);
    {
      std::vector<std::jthread> threads;
      for (std::size_t number = 0; number < kThreads; ++number) {
        threads.emplace_back([&, number] {
          start.arrive_and_wait();
          for (const std::size_t first : {std::size_t{0}, number * calls.size() / kThreads}) {
            wrong[number] += wrongCalls(session, calls, first);
          }
        });
      }
    }
    CAPTURE(version);
    for (const std::string& lines : wrong) CHECK(lines == "");
    CHECK(session.host().alive() == 0);
  }
}
