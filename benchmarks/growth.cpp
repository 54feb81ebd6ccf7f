// Runs the store and the main window's content through ten thousand cycles of new figures, which is
// 35 days, and prints what the process holds, in kB: the heap in use and its private memory. A line
// stands for a hundred cycles and is the least of them, so that what comes and goes is not in it.

#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <fmt/format.h>
#include <malloc.h>
#include "shell/sample_states.h"
#include "shell/views/balance_view.h"

namespace {
using namespace orvane;

constexpr int cycles = 10'000;
constexpr int cyclesInLine = 100;

long heapInUse() {
  const auto heap = mallinfo2();
  return static_cast<long>((heap.uordblks + heap.hblkhd) / 1024);
}

long privateDirty() {
  std::ifstream memory("/proc/self/smaps_rollup");
  std::string word;
  long kilobytes = 0;
  while (memory >> word) {
    if (word == "Private_Dirty:") { memory >> kilobytes; }
  }
  return kilobytes;
}

struct Held {
  long heap = heapInUse();
  long dirty = privateDirty();
};

/// The account of a miner whose workers come and go, cycle after cycle.
class Life {
 public:
  Life() {
    fakes_.startShowing(test::everything());
    fakes_.transport.on("/profile/json/btc/").respondBy([this](const HttpRequest&) {
      return HttpResponse{.status = 200,
                          .body = fmt::format(R"({{"btc":{{"hash_rate_unit":"h/s",)"
                                              R"("hash_rate_60m":{0},"shares_24h":{0},)"
                                              R"("today_reward":"{0}e-8",)"
                                              R"("current_balance":"{0}e-8"}}}})",
                                              100'000 + cycle_)};
    });
    fakes_.transport.on("/workers/json/btc/").respondBy([this](const HttpRequest&) {
      return HttpResponse{.status = 200, .body = workers()};
    });
    view_.emplace(*fakes_.store, fakes_.format, BalanceViewSettings{.poolWebHost = "pool.test"},
                  [] {});
    view_->show();
  }

  void runCycle() {
    ++cycle_;
    fakes_.transport.clearSent();
    for (int minute = 0; minute < 5; ++minute) {
      fakes_.executor.advance(std::chrono::minutes(1));
      QCoreApplication::processEvents();
    }
  }

 private:
  std::string workers() const {
    std::string entries;
    for (int worker = 0; worker < 20 + cycle_ % 7; ++worker) {
      entries +=
          fmt::format(R"({}"pellam.rig{}":{{"state":"{}","hash_rate_unit":"Th/s",)"
                      R"("hash_rate_5m":{},"hash_rate_60m":1,"hash_rate_24h":1,)"
                      R"("last_share":1763164800}})",
                      worker == 0 ? "" : ",", worker, cycle_ % 3 == 0 ? "low" : "ok", cycle_ % 100);
    }
    return R"({"btc":{"workers":{)" + entries + "}}}";
  }

  test::StoreOnFakes fakes_;
  int cycle_ = 0;
  std::optional<BalanceView> view_;
};

Held leastDuring(Life& life) {
  Held least;
  for (int cycle = 0; cycle < cyclesInLine; ++cycle) {
    life.runCycle();
    const Held now;
    least = {.heap = std::min(least.heap, now.heap), .dirty = std::min(least.dirty, now.dirty)};
  }
  return least;
}
}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  Life life;
  for (int line = 0; line < cycles / cyclesInLine; ++line) {
    const Held held = leastDuring(life);
    std::printf("%ld %ld\n", held.heap, held.dirty);
  }
  return 0;
}
