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
  [[noreturn]] void writeForEver(int number, int report) const {
    for (SqliteDefaults defaults(file);; ++number) {
      const std::string text = std::to_string(number);
      defaults.setTexts("copies", std::vector<std::string>(1 + number % 300, text));
      defaults.setText("number", text);
      if (::write(report, &number, sizeof number) != sizeof number) { ::_exit(1); }
    }
  }

  /// Lets a process write and kills it after `reports` numbers; the last one that it reported.
  int lastReportOfKilledProcess(int start, int reports) const {
    std::array<int, 2> channel{};
    EXPECT_EQ(::pipe(channel.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) { writeForEver(start, channel[1]); }
    ::close(channel[1]);
    int last = 0;
    int number = 0;
    while (::read(channel[0], &number, sizeof number) == sizeof number) {
      last = number;
      if (--reports == 0) { ::kill(child, SIGKILL); }
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
    const int number = std::stoi(defaults.text("number").value());
    EXPECT_GE(number, last);
    EXPECT_LE(number, last + 1);
    const std::vector<std::string> copies = defaults.texts("copies").value();
    last = std::stoi(copies.front());
    EXPECT_GE(last, number);
    EXPECT_EQ(copies, std::vector<std::string>(1 + last % 300, copies.front()));
  }
  EXPECT_THAT(files(), testing::ElementsAre("settings.sqlite"));
}

}  // namespace
}  // namespace orvane::test
