#include "services/command_line.h"

#include <vector>

#include <gtest/gtest.h>

namespace orvane::test {
namespace {

using services::parseCommandLine;
using services::Service;

using Arguments = std::vector<const char*>;

TEST(CommandLineTest, OptionsReachTheirPlacesAndTheDemoPlansItsMomentsUnlessTheyAreGiven) {
  const auto options =
      parseCommandLine(Arguments{"--directory", "/tmp/x", "--pool-port", "4001", "--control-port",
                                 "4006", "--token", "abc", "--speed", "2.5", "--payment-after", "5",
                                 "--demo"})
          .value()
          .options;
  EXPECT_EQ(options.directory, "/tmp/x");
  EXPECT_EQ(options.ports[indexOf(Service::pool)], 4001);
  EXPECT_EQ(options.ports[indexOf(Service::explorer)], 0);
  EXPECT_EQ(options.controlPort, 4006);
  EXPECT_EQ(options.token, "abc");
  EXPECT_EQ(options.speed, 2.5);
  EXPECT_EQ(options.paymentAfter->count(), 5);
  EXPECT_EQ(options.rewardAfter->count(), 40);
}

TEST(CommandLineTest, WrongArgumentsAreNamed) {
  struct Case {
    Arguments arguments;
    const char* problem;
  };
  for (const auto& [arguments, problem] :
       {Case{{"--unknown"}, "unknown option --unknown"}, Case{{"--token"}, "--token needs a value"},
        Case{{"--pool-port", "70000"}, R"(--pool-port does not take "70000")"},
        Case{{"--pool-port", "1x"}, R"(--pool-port does not take "1x")"},
        Case{{"--speed", "0"}, R"(--speed does not take "0")"},
        Case{{"--reward-after", "nan"}, R"(--reward-after does not take "nan")"}}) {
    EXPECT_EQ(parseCommandLine(arguments).error(), problem);
  }
}

}  // namespace
}  // namespace orvane::test
