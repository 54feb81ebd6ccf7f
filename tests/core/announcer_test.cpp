#include <optional>

#include <gtest/gtest.h>

#include "core/balance_state.h"

namespace orvane {
namespace {

TEST(AnnouncerTest, LetsListenersComeAndGoWhileTheyAreTold) {
  Announcer announcer;
  int told = 0;
  std::optional<Announcer::Subscription> later;
  std::optional<Announcer::Subscription> once;
  once = announcer.subscribe([&] {
    ++told;
    later = announcer.subscribe([&] { told += 10; });
    once.reset();
  });
  announcer.announce();
  EXPECT_EQ(told, 1);
  announcer.announce();
  EXPECT_EQ(told, 11);
  later.reset();
  announcer.announce();
  EXPECT_EQ(told, 11);
}

}  // namespace
}  // namespace orvane
