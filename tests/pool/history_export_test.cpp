#include "pool/history_export.h"
#include <algorithm>
#include <limits>
#include <gtest/gtest.h>

namespace orvane::test { namespace {

using namespace std::chrono_literals;

constexpr std::chrono::sys_seconds day = std::chrono::sys_days(2026y / 11 / 15) + 23h + 59min;

TEST(HistoryExportTest, GivesEachDayInFieldsThatProgramsRead) {
  struct Case {
    BraiinsHistoryDay day;
    const char* row;
    const char* line = nullptr;  ///< none: the same with tabs
  };
  const Case cases[] = {
      {{day, 7.6e13, 9'223'372'036, "0.00012345"},
       "2026-11-15,76000000000000,9223372036,0.00012345,12345"},
      {{day, 0.1, 0, "0.000000005"}, "2026-11-15,0.1,0,0.000000005,0.5"},
      {{day, 1e22, {}, "1e-3"}, "2026-11-15,10000000000000000000000,,1e-3,100000"},
      {{day}, "2026-11-15,,,,"},
      {{day, std::numeric_limits<double>::infinity()}, "2026-11-15,,,,"},
      {{std::chrono::sys_seconds::max()}, "9999-12-31,,,,"},
      {{std::chrono::sys_seconds::min()}, "0000-01-01,,,,"},
      {{day, {}, {}, "-0.5"}, "2026-11-15,,,-0.5,-50000000"},
      {{day, {}, {}, "=HYPERLINK(1)"}, "2026-11-15,,,'=HYPERLINK(1),"},
      {{day, {}, {}, "+1+cmd"}, "2026-11-15,,,'+1+cmd,"},
      {{day, {}, {}, "-1-1"}, "2026-11-15,,,'-1-1,"},
      {{day, {}, {}, "@a"}, "2026-11-15,,,'@a,"},
      {{day, {}, {}, "\ta"}, "2026-11-15,,,'\ta,", "2026-11-15\t\t\t' a\t"},
      {{day, {}, {}, "\ra"}, "2026-11-15,,,\"'\ra\",", "2026-11-15\t\t\t' a\t"},
      {{day, {}, {}, "\"1\",\n2"}, "2026-11-15,,,\"\"\"1\"\",\n2\",", "2026-11-15\t\t\t\"1\", 2\t"},
  };
  const std::string titles = "Date,Average hash rate (H/s),Shares,Reward (BTC),Reward (sats)\r\n";
  EXPECT_EQ(historyCsv({}), titles);
  for (const auto& [each, row, line] : cases) {
    std::string tabbed = row;
    std::ranges::replace(tabbed, ',', '\t');
    EXPECT_EQ(historyCsv({&each, 1}), titles + row + "\r\n");
    EXPECT_EQ(historyTabSeparated({&each, 1}), (line ? line : tabbed) + "\n");
  }
}

}}  // namespace orvane::test
