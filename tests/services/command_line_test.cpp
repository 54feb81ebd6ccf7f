#include "services/command_line.h"

#include <vector>

#include <gtest/gtest.h>

namespace orvane::test {
namespace {

using services::parseCommandLine;
using services::Service;

using Arguments = std::vector<const char*>;

TEST(CommandLineTest, OptionsReachTheirPlaces) {
  const Arguments arguments{"--directory",  "/tmp/x", "--pool-port",    "4001",
                            "--price-port", "4003",   "--control-port", "4006",
                            "--token",      "abc",    "--speed",        "2.5"};
  const auto commandLine = parseCommandLine(arguments);
  ASSERT_TRUE(commandLine);
  EXPECT_EQ(commandLine->options.directory, "/tmp/x");
  EXPECT_EQ(commandLine->options.ports[indexOf(Service::pool)], 4001);
  EXPECT_EQ(commandLine->options.ports[indexOf(Service::explorer)], 0);
  EXPECT_EQ(commandLine->options.ports[indexOf(Service::price)], 4003);
  EXPECT_EQ(commandLine->options.controlPort, 4006);
  EXPECT_EQ(commandLine->options.token, "abc");
  EXPECT_EQ(commandLine->options.speed, 2.5);
  EXPECT_FALSE(commandLine->options.paymentAfter);
}

TEST(CommandLineTest, DemoPlansItsMomentsUnlessTheyAreGiven) {
  const Arguments arguments{"--payment-after", "5", "--demo"};
  const auto options = parseCommandLine(arguments)->options;
  EXPECT_EQ(options.paymentAfter->count(), 5);
  EXPECT_EQ(options.rewardAfter->count(), 40);
}

TEST(CommandLineTest, WrongArgumentsAreNamed) {
  struct Case {
    Arguments arguments;
    const char* problem;
  };
  for (const Case& each :
       {Case{{"--unknown"}, "unknown option --unknown"}, Case{{"--token"}, "--token needs a value"},
        Case{{"--pool-port", "70000"}, R"(--pool-port does not take "70000")"},
        Case{{"--pool-port", "1x"}, R"(--pool-port does not take "1x")"},
        Case{{"--speed", "0"}, R"(--speed does not take "0")"},
        Case{{"--reward-after", "nan"}, R"(--reward-after does not take "nan")"}}) {
    const auto commandLine = parseCommandLine(each.arguments);
    ASSERT_FALSE(commandLine) << each.problem;
    EXPECT_EQ(commandLine.error(), each.problem);
  }
}

}  // namespace
}  // namespace orvane::test
