#include <random>
#include "store_fixture.h"

namespace orvane::test { namespace {

using State = BraiinsWorkerStatus::State;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto cycle = 360s;  // 60 between account and workers, 300 to the next account
constexpr const char* key = "balance.notifiesWorkerStates";

/// The workers that the pool lists from now on, and what the user is told of them.
class WorkerNotificationsTest : public StoreTest {
 protected:
  void list(std::vector<BraiinsWorkerStatus> workers, int cycles) {
    BalanceState figures = state();
    figures.workers = std::move(workers);
    figures.stats = BraiinsAccountStats();
    figures.prices = CurrentBitcoinPrices();
    knowFigures(figures);
    executor.advance(cycles * cycle);
  }
  void list(State state, int cycles = 2) {
    list({{.fullName = "p.a",
           .state = state,
           .hashRate60m = 1e12,
           .hashRate24h = 2e12,
           .lastShare = std::chrono::sys_days(2026y / 11 / 15) + 14h},
          {.fullName = "p.b", .state = State::ok}},
         cycles);
  }
  std::vector<std::string> takeTold() {
    std::vector<std::string> told;
    for (const std::size_t all = notifications.shown().size(); shown_ < all; ++shown_) {
      const NotificationRequest& request = notifications.shown()[shown_];
      told.push_back(request.identifier + "|" + request.title + "|" + request.body);
    }
    return told;
  }
  void startWithAlerts() {
    defaults.setBoolean(key, true);
    storeToken("first");
    start();
    list(State::ok);
  }

 private:
  std::size_t shown_ = 0;
};

TEST_F(WorkerNotificationsTest, SayWhatHappenedInThePlaceOfWhatTheySaidBefore) {
  startWithAlerts();
  list(State::off);
  EXPECT_THAT(takeTold(), ElementsAre("worker-p.a|Worker off|a has stopped. Last share 15.11.2026, "
                                      "14:00."));
  list(State::low, 3);
  EXPECT_THAT(takeTold(), ElementsAre("worker-p.a|Worker low|a has slowed down: 1.00 TH/s over 60 "
                                      "minutes, 2.00 TH/s over 24 hours."));
  list(State::ok);
  EXPECT_THAT(takeTold(), ElementsAre("worker-p.a|Worker back|a is OK again."));
  list({{.fullName = "other"}}, 2);
  EXPECT_THAT(takeTold(), ElementsAre("worker-p.a|Worker off|a has stopped. Last share 15.11.2026, "
                                      "14:00.",
                                      "worker-p.b|Worker off|b has stopped."));
}

TEST_F(WorkerNotificationsTest, BeginAnewUnlessTheyWereOnAndOfThisAccount) {
  const std::vector<std::pair<const char*, std::function<void()>>> beginnings{
      {"off", [this] { store->setNotifiesWorkerStates(false); }},
      {"off and on",
       [this] {
         store->setNotifiesWorkerStates(false);
         list(State::off, 1);
         store->setNotifiesWorkerStates(true);
       }},
      {"another account", [this] { store->setToken("second"); }},
      {"the end of the program", [this] { start(); }}};
  for (const auto& [name, begin] : beginnings) {
    startWithAlerts();
    begin();
    list(State::off, 5);
    list(State::ok, 5);
    EXPECT_THAT(takeTold(), IsEmpty()) << name;
  }
  EXPECT_EQ(notifications.authorizationRequests(), 0) << "with nothing to say";
  startWithAlerts();
  store->setNotifiesWorkerStates(false);
  store->setNotifiesWorkerStates(true);
  list(State::off);
  store->setToken("second");
  list(State::ok, 5);
  EXPECT_EQ(takeTold().size(), 1U);
  EXPECT_FALSE(defaults.texts("balance.workersToldOf"));
}

/// What must be told, found by looking back over everything that the lists have said of a worker.
class Oracle {
 public:
  void restart() {
    for (auto& [name, seen] : seen_) {
      seen = told_[name] ? std::string(1, static_cast<char>(std::toupper(told_[name]))) : "";
    }
  }
  /// The short names of those who are told of now. A letter a worker as in the lists; none: gone.
  std::set<std::string> hear(const std::map<std::string, char>& list) {
    std::set<std::string> told;
    if (list.empty()) { return told; }
    for (const auto& [name, letter] : list) {
      if (letter == 'd') { told_[name] = 0; }
      seen_[name] = letter == 'd' ? "" : seen_[name] + letter;
    }
    for (auto& [name, seen] : seen_) {
      if (!list.contains(name)) { miss(name, seen); }
      if (!seen.empty() && isNews(name, seen)) { told.insert(name); }
    }
    return told;
  }

 private:
  void miss(const std::string& name, std::string& seen) {
    const char before = settled(seen);
    if (told_[name] || before == 'o' || before == 'l') {
      seen += 'f';
    } else {
      seen.clear();
    }
  }
  bool isNews(const std::string& name, const std::string& seen) {
    const char before = settled(seen.substr(0, seen.size() - 1));
    const char now = settled(seen);
    if (!before || now == before || (now == 'o' && !told_[name])) { return false; }
    told_[name] = now == 'o' ? '\0' : now;
    return true;
  }
  /// The state of the last full window; else the first one, or (a capital) what was told earlier.
  static char settled(const std::string& seen) {
    for (std::size_t end = seen.size(); end > 0; --end) {
      const std::string window(seen[end - 1] == 'l' ? 3 : 2, seen[end - 1]);
      if (window[0] != '?' && seen.substr(0, end).ends_with(window)) { return window[0]; }
    }
    const auto first = seen.find_first_not_of('?');
    return first == std::string::npos ? '\0' : static_cast<char>(std::tolower(seen[first]));
  }

  std::map<std::string, std::string> seen_;
  std::map<std::string, char> told_;
};

/// A pool whose workers flap, stop, leave, are disabled and lose their power all at once.
class World {
 public:
  explicit World(unsigned seed) : random_(seed), until_(pick(2, 9)), letters_(until_.size(), 'o') {}

  /// One more list; nothing when the request fails.
  std::optional<std::map<std::string, char>> next() {
    ++now_;
    if (chance(500)) { powerCutUntil_ = now_ + pick(1, 30); }
    std::map<std::string, char> list;
    for (std::size_t i = 0; i < letters_.size(); ++i) {
      if (now_ >= until_[i]) { change(i); }
      const char letter = now_ < powerCutUntil_ ? 'f' : letters_[i];
      if (letter != '-') { list["rig" + std::to_string(i)] = letter; }
    }
    return chance(20) ? std::nullopt : std::optional(list);
  }
  bool chance(unsigned once) { return random_() % once == 0; }

 private:
  unsigned pick(unsigned least, unsigned most) { return least + random_() % (most - least + 1); }
  void change(std::size_t i) {
    letters_[i] = letters_[i] == 'o' || chance(4) ? "fffllll--d?"[random_() % 11] : 'o';
    until_[i] = now_ + (letters_[i] == 'o' ? pick(1, 200) : chance(3) ? pick(3, 50) : pick(1, 2));
  }

  std::mt19937 random_;
  unsigned now_ = 0;
  unsigned powerCutUntil_ = 0;
  std::vector<unsigned> until_;
  std::string letters_;
};

std::string document(const std::map<std::string, char>& list) {
  std::string workers;
  for (const auto& [name, letter] : list) {
    const std::map<char, std::string> texts{{'o', "ok"}, {'l', "low"}, {'f', "off"}, {'d', "dis"}};
    workers += (workers.empty() ? "\"p." : ",\"p.") + name + R"(":{"state":")" +
               (texts.contains(letter) ? texts.at(letter) : "new") + "\"}";
  }
  return R"({"btc":{"workers":{)" + workers + "}}}";
}

/// Whether `news`, all that was told at once, is of just these workers.
bool isOf(std::span<const NotificationRequest> news, const std::set<std::string>& names) {
  if (news.size() != (names.size() > 2 ? 1 : names.size())) { return false; }
  return std::ranges::all_of(names, [&](const std::string& name) {
    return std::ranges::any_of(news, [&](auto& each) { return each.body.contains(name); });
  });
}

// The seeds follow from --gtest_random_seed, so that more than these can be tried.
TEST_F(WorkerNotificationsTest, AMonthOfTroubleIsToldRightly) {
  constexpr unsigned seeds = 24;
  const auto first = static_cast<unsigned>(GTEST_FLAG_GET(random_seed)) * seeds;
  for (unsigned seed = first; seed < first + seeds; ++seed) {
    World world(seed);
    Oracle oracle;
    std::set<std::string> expected;
    defaults = MemoryDefaults();
    startWithAlerts();
    start();
    transport.on("/workers").respondBy([&](const HttpRequest& /*request*/) -> HttpResult {
      const auto list = world.next();
      if (!list) { return std::unexpected(HttpFailure::timedOut); }
      expected = oracle.hear(*list);
      return HttpResponse{.status = 200, .body = document(*list)};
    });
    std::size_t before = notifications.shown().size();
    std::size_t alerts = 0;
    for (int cycles = 0; cycles < 30 * 24 * 10; ++cycles) {
      expected.clear();
      executor.advance(cycle);
      const std::span news = std::span(notifications.shown()).subspan(before);
      ASSERT_TRUE(isOf(news, expected)) << "seed " << seed << ", cycle " << cycles;
      before += news.size();
      alerts += expected.size();
      if (world.chance(100)) {
        start();
        oracle.restart();
      }
    }
    EXPECT_GT(alerts, 50U);
    transport.clearSent();
  }
}

}}  // namespace orvane::test
