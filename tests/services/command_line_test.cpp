#include "services/command_line.h"
#include <gtest/gtest.h>

namespace orvane::test { namespace {

using services::Service;

auto parse(QStringList arguments) {
  arguments.prepend("orvane-services");
  return services::parseCommandLine(arguments);
}

TEST(CommandLineTest, OptionsReachTheirPlacesAndTheDemoPlansItsMomentsUnlessTheyAreGiven) {
  const auto options = parse({"--directory", "/tmp/x", "--pool-port", "4001", "--token", "abc",
                              "--speed", "2.5", "--payment-after", "5", "--demo"})
                           .value()
                           .options;
  EXPECT_EQ(options.directory, "/tmp/x");
  EXPECT_EQ(options.ports[indexOf(Service::pool)], 4001);
  EXPECT_EQ(options.ports[indexOf(Service::explorer)], 0);
  EXPECT_EQ(options.token, "abc");
  EXPECT_EQ(options.speed, 2.5);
  EXPECT_EQ(options.paymentAfter->count(), 5);
  EXPECT_EQ(options.rewardAfter->count(), 40);
}

TEST(CommandLineTest, WrongArgumentsAreRefused) {
  for (const char* line : {"--unknown", "stray", "--token", "--token ", "--pool-port 70000",
                           "--pool-port 1x", "--speed 0", "--reward-after nan"}) {
    EXPECT_FALSE(parse(QString(line).split(' '))) << line;
  }
}

}}  // namespace orvane::test
