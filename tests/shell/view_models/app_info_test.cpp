#include "shell/view_models/app_info.h"

#include <gtest/gtest.h>

namespace orvane::test {
namespace {

TEST(AppInfoTest, TheVersionTextHasABuildWhereThereIsOne) {
  EXPECT_EQ(applicationVersionText("1.2.0", "345"), "Version 1.2.0 (345)");
  EXPECT_EQ(applicationVersionText("1.2.0", ""), "Version 1.2.0");
  EXPECT_EQ(applicationVersionText({}, "345"), "Version 1.0 (345)");
  EXPECT_EQ(applicationVersionText({}, {}), "Version 1.0");
}

}  // namespace
}  // namespace orvane::test
