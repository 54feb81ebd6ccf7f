#include <array>
#include <csignal>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "settings_fixture.h"

namespace orvane::test {
namespace {

class KilledProcessTest : public SettingsFileTest {
 protected:
  /// Writes number after number, reporting each that is written, for ever.
  [[noreturn]] void writeForEver(int start, int report) const {
    SqliteDefaults defaults(file);
    for (int number = start;; ++number) {
      const std::string text = std::to_string(number);
      const std::vector<std::string> copies(1 + number % 300, text);
      defaults.setTexts("copies", copies);
      defaults.setText("number", text);
      defaults.setBoolean("even", number % 2 == 0);
      if (::write(report, &number, sizeof number) != sizeof number) ::_exit(1);
    }
  }

  /// Lets a process write and kills it after `reports` numbers; the last one that it reported.
  int lastReportOfKilledProcess(int start, int reports) const {
    std::array<int, 2> channel{};
    EXPECT_EQ(::pipe(channel.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) writeForEver(start, channel[1]);
    ::close(channel[1]);
    int last = 0;
    int number = 0;
    while (::read(channel[0], &number, sizeof number) == sizeof number) {
      last = number;
      if (--reports == 0) ::kill(child, SIGKILL);
    }
    ::close(channel[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
    return last;
  }
};

TEST_F(KilledProcessTest, EveryFinishedWriteIsThereAndNoHalfOne) {
  int last = 0;
  for (int round = 0; round < 30; ++round) {
    last = lastReportOfKilledProcess(last + 1, 1 + round * 7);
    const SqliteDefaults defaults(file);
    ASSERT_TRUE(defaults.text("number"));
    const int number = std::stoi(*defaults.text("number"));
    EXPECT_GE(number, last);
    EXPECT_LE(number, last + 1);
    const std::vector<std::string> copies = defaults.texts("copies").value();
    const int copied = std::stoi(copies.front());
    EXPECT_GE(copied, number);
    EXPECT_EQ(copies, std::vector<std::string>(1 + copied % 300, copies.front()));
    last = copied;
  }
  EXPECT_THAT(files(), testing::ElementsAre("settings.sqlite"));
}

}  // namespace
}  // namespace orvane::test
