#include "pool/worker_alerts.h"
#include <gmock/gmock.h>

namespace orvane::test { namespace {

using State = BraiinsWorkerStatus::State;
using testing::ElementsAre;
using testing::IsEmpty;

State stateOf(char letter) {
  constexpr std::string_view letters = "olfd?";
  return static_cast<State>(letters.find(letter));
}

/// "F", "L" or "B" for a message about one worker, a figure for one about more.
std::string told(const std::vector<WorkerMessage>& messages) {
  std::string text;
  for (const WorkerMessage& message : messages) {
    const auto kind = static_cast<std::size_t>(message.alerts[0].kind);
    text += message.alerts.size() == 1 ? std::string(1, "FLB"[kind])
                                       : std::to_string(message.alerts.size());
  }
  return text;
}

/// A letter a list: ok, low, off, disabled, ? unknown; "-" a list without the worker, "0" an empty
/// one. Beneath it what is told then. Another worker is well all the time.
struct History {
  const char* fault;
  std::string lists;
  std::string told;
};

TEST(WorkerAlertsTest, AreOfChangesThatLast) {
  const std::vector<History> histories{
      {"a stop is told after two lists, and once", "offffff", "  F    "},
      {"so is one that leaves the list", "o-f--", "  F  "},
      {"a slow one after three", "olllll", "   L  "},
      {"a recovery after two", "offoooo", "  F B  "},
      {"from slow as well", "olllooo", "   L B "},
      {"slow, then gone", "olll--oo", "   L F B"},
      {"gone, then slow", "offlllfl", "  F  L  "},
      {"flapping is not told", "ofoflolloffoofolflflf", "          F B        "},
      {"a blip ends no trouble", "offoffofff", "  F       "},
      {"what the first list says is old", "ffffoooo", "        "},
      {"slow from the first", "llllloooo", "         "},
      {"slow from the first, then gone", "lffoo", "  F B"},
      {"no verdict is none", "o?of?f?l?ffo?oo", "          F   B"},
      {"an empty list neither", "of00f0o0o0", "    F   B "},
      {"a disabled one is forgotten", "offdffoood", "  F       "},
      {"and new when it comes back", "odffoff", "       "},
      {"who left unmissed is new as well", "ff-off", "     F"},
  };
  for (const auto& [fault, lists, expected] : histories) {
    WatchedWorkers workers;
    std::string all;
    for (const char letter : lists) {
      std::vector<BraiinsWorkerStatus> list{{.fullName = "a.well", .state = State::ok}};
      if (letter == '0') { list.clear(); }
      if (std::string_view("olfd?").contains(letter)) {
        list.push_back({.fullName = "a.b", .state = stateOf(letter)});
      }
      WorkerNews news = reduce(std::move(workers), list);
      workers = std::move(news.workers);
      const std::string text = told(news.messages);
      all += text.empty() ? " " : text;
    }
    EXPECT_EQ(all, expected) << fault;
  }
}

/// Hands over lists of workers named by a letter each.
class WorkerGroupsTest : public testing::Test {
 protected:
  /// "identifier:alerts" for each message of the second of two lists in which the workers named by
  /// `off` are off and the others OK.
  std::vector<std::string> twice(std::string_view off) {
    std::vector<BraiinsWorkerStatus> list;
    for (const char name : std::string_view("abcdefg")) {
      list.push_back({.fullName = {name}, .state = off.contains(name) ? State::off : State::ok});
    }
    workers = reduce(std::move(workers), list).workers;
    WorkerNews news = reduce(std::move(workers), list);
    workers = std::move(news.workers);
    std::vector<std::string> texts;
    for (const WorkerMessage& message : news.messages) {
      texts.push_back(message.identifier + ":" + told({message}));
    }
    return texts;
  }
  WatchedWorkers workers;
};

TEST_F(WorkerGroupsTest, AreOneMessageThatTheLastRecoveryReplaces) {
  EXPECT_THAT(twice(""), IsEmpty());
  EXPECT_THAT(twice("ab"), ElementsAre("worker-a:F", "worker-b:F"));
  EXPECT_THAT(twice("abcdef"), ElementsAre("workers-1:4"));
  EXPECT_THAT(twice("bdef"), ElementsAre("worker-a:B", "worker-c:B"));
  EXPECT_THAT(twice("def"), ElementsAre("worker-b:B"));
  EXPECT_THAT(twice("abcdefg"), ElementsAre("workers-2:4"));
  EXPECT_THAT(twice("bcdefg"), ElementsAre("worker-a:B"));
  EXPECT_THAT(twice("abcg"), ElementsAre("workers-1:4"));  // three are back, one has stopped
  EXPECT_THAT(twice(""), ElementsAre("workers-1:4"));
}

}}  // namespace orvane::test
