#include "services/scenario/pool_story.h"
#include <array>
#include <cmath>
#include <string_view>
#include "services/scenario/noise.h"

namespace orvane::services {
namespace {
using std::chrono::days;
using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::sys_seconds;

constexpr double gigahash = 1e9;
constexpr double terahash = 1e12;
constexpr double hashesPerShare = 4294967296.0;

constexpr std::uint64_t rewardSeed = 1;
constexpr std::uint64_t dayRateSeed = 2;
constexpr std::uint64_t workerSeed = 100;

constexpr std::int64_t openingBalanceSats = 198'765;
constexpr std::int64_t typicalDaySats = 12'345;
constexpr double typicalDayRate = 76 * terahash;
constexpr int historyDays = 365;

/// The worker whose state changes as the story goes on.
constexpr std::string_view storyteller = "story";

struct Character {
  std::string_view name;
  std::string_view state;
  std::string_view unit;
  double rate;
  seconds sinceLastShare;
};

constexpr std::array cast{
    Character{"larkspur.garage-s15", "ok", "Th/s", 41.5 * terahash, seconds(4)},
    Character{"larkspur.barn-rack", "ok", "Ph/s", 20.8 * terahash, seconds(2)},
    Character{"larkspur.attic-s9", storyteller, "Th/s", 13.5 * terahash, seconds(9)},
    Character{"larkspur.shed-bitaxe", "ok", "Gh/s", 1'214 * gigahash, seconds(41)},
    Character{"larkspur.cellar-usb", "low", "Mh/s", 0.33 * gigahash, minutes(18)},
    Character{"larkspur.loft-s17", "off", "Th/s", 0, hours(52)},
    Character{"larkspur.spare-s15", "dis", "Th/s", 0, days(71)},
    Character{"larkspur.new-arrival", "unknown", "Gh/s", 0, seconds(0)},
    Character{"larkspur.unnamed", "", "", 0, seconds(0)},
};

struct Act {
  std::string_view state;
  seconds length;
  double share5m;  ///< part of the full rate
  double share60m;
};

/// A client that asks every six minutes sees the worker gone twice in a row, and well twice.
constexpr std::array acts{Act{"ok", minutes(5), 1.0, 1.0}, Act{"low", minutes(5), 0.4, 0.85},
                          Act{"off", minutes(13), 0.0, 0.5}, Act{"ok", minutes(7), 0.95, 0.6}};

struct Scene {
  Act act;
  seconds since;  ///< how long it has lasted
};

Scene sceneAt(const Moment& moment) {
  seconds total(0);
  for (const Act& act : acts) {
    total += act.length;
  }
  seconds since(std::chrono::floor<seconds>(moment.elapsed).count() % total.count());
  const Act* act = acts.data();
  for (; since >= act->length; ++act) {
    since -= act->length;
  }
  return {.act = *act, .since = since};
}

/// A rate that wanders a little from minute to minute.
double wandering(double rate, std::size_t worker, std::uint64_t figure, const Moment& moment) {
  const auto minute = std::chrono::floor<minutes>(moment.calendar.time_since_epoch()).count();
  return rate * (1 + 0.02 * noise(workerSeed + worker * 3 + figure, minute));
}

sys_seconds lastShareOfStory(const Moment& moment, const Character& character) {
  const Scene scene = sceneAt(moment);
  const seconds gone = scene.act.state == "off" ? scene.since : seconds(0);
  return moment.calendar - gone - character.sinceLastShare;
}

PoolWorker workerAt(const Moment& moment, std::size_t index) {
  const Character& character = cast[index];
  const bool story = character.state == storyteller;
  const Act act = story ? sceneAt(moment).act : Act{character.state, {}, 1.0, 1.0};
  PoolWorker worker{.name = std::string(character.name),
                    .state = std::string(act.state),
                    .unit = std::string(character.unit),
                    .rate5m = wandering(character.rate * act.share5m, index, 0, moment),
                    .rate60m = wandering(character.rate * act.share60m, index, 1, moment),
                    .rate24h = wandering(character.rate, index, 2, moment),
                    .lastShare = std::nullopt};
  if (story) {
    worker.lastShare = lastShareOfStory(moment, character);
  } else if (character.sinceLastShare > seconds(0)) {
    worker.lastShare = moment.calendar - character.sinceLastShare;
  }
  return worker;
}

std::int64_t dayRewardSats(sys_days day) {
  const auto number = day.time_since_epoch().count();
  return typicalDaySats + std::llround(2'100 * noise(rewardSeed, number));
}

/// What the running day has brought so far.
std::int64_t todaySats(sys_seconds now) {
  const auto day = std::chrono::floor<days>(now);
  return dayRewardSats(day) * (now - day).count() / seconds(days(1)).count();
}

/// The rewards of all days from one moment to a later one, the broken days in part.
std::int64_t earnedBetween(sys_seconds from, sys_seconds to) {
  std::int64_t sum = todaySats(to) - todaySats(from);
  for (auto day = std::chrono::floor<days>(from); day < std::chrono::floor<days>(to);
       day += days(1)) {
    sum += dayRewardSats(day);
  }
  return sum;
}

PoolDay historyDay(sys_days date) {
  const auto number = date.time_since_epoch().count();
  PoolDay day{.date = date, .rewardSats = dayRewardSats(date), .rate = std::nullopt};
  const bool poweredOff = number % 61 == 20;
  const double rate = poweredOff ? 0 : typicalDayRate * (1 + 0.08 * noise(dayRateSeed, number));
  if (poweredOff) { day.rewardSats = 0; }
  if (number % 53 == 11) { day.rewardSats.reset(); }
  if (number % 37 != 5) { day.rate = rate; }
  day.shares = std::round(rate * seconds(days(1)).count() / hashesPerShare);
  return day;
}
}  // namespace

std::vector<PoolWorker> workersAt(const Moment& moment) {
  std::vector<PoolWorker> workers;
  workers.reserve(cast.size());
  for (std::size_t index = 0; index < cast.size(); ++index) {
    workers.push_back(workerAt(moment, index));
  }
  return workers;
}

PoolAccount accountAt(const Moment& moment) {
  const sys_seconds start = moment.calendar - std::chrono::floor<seconds>(moment.elapsed);
  PoolAccount account;
  double rate24h = 0;
  for (const PoolWorker& worker : workersAt(moment)) {
    account.rate60m += worker.rate60m;
    rate24h += worker.rate24h;
  }
  account.shares24h = std::round(rate24h * seconds(days(1)).count() / hashesPerShare);
  account.todayRewardSats = todaySats(moment.calendar);
  account.balanceSats = openingBalanceSats + earnedBetween(start, moment.calendar);
  return account;
}

std::vector<PoolDay> daysBefore(const Moment& moment) {
  const auto today = std::chrono::floor<days>(moment.calendar);
  std::vector<PoolDay> history;
  for (auto date = today - days(historyDays); date < today; date += days(1)) {
    history.push_back(historyDay(date));
  }
  return history;
}
}  // namespace orvane::services
