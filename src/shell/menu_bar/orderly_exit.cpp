#include "shell/menu_bar/orderly_exit.h"

#include <chrono>
#include <utility>

namespace orvane {
namespace {

using namespace std::chrono_literals;

constexpr auto longestWait = 2s;
constexpr auto pollInterval = 20ms;

}  // namespace

OrderlyExit::OrderlyExit(Executor& executor, std::function<bool()> mayEnd,
                         std::function<void()> end)
    : executor_(executor), mayEnd_(std::move(mayEnd)), end_(std::move(end)) {}

void OrderlyExit::begin() {
  if (deadline_) { return; }
  deadline_ = executor_.now() + longestWait;
  poll();
}

void OrderlyExit::poll() {
  if (mayEnd_() || executor_.now() >= *deadline_) {
    end_();
  } else {
    nextPoll_.emplace(executor_, pollInterval, [this] { poll(); });
  }
}

}  // namespace orvane
