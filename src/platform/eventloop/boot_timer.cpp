#include "platform/eventloop/boot_timer.h"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <system_error>

#include <sys/timerfd.h>
#include <unistd.h>

namespace orvane {

using std::chrono::nanoseconds;
using std::chrono::seconds;

BootTimer::BootTimer() : descriptor_(::timerfd_create(CLOCK_BOOTTIME, TFD_NONBLOCK | TFD_CLOEXEC)) {
  if (descriptor_ < 0) {
    throw std::system_error(errno, std::generic_category(), "timerfd_create");
  }
}

BootTimer::~BootTimer() { ::close(descriptor_); }

Instant BootTimer::now() {
  timespec time{};
  ::clock_gettime(CLOCK_BOOTTIME, &time);
  return Instant(seconds(time.tv_sec) + nanoseconds(time.tv_nsec));
}

void BootTimer::set(std::optional<Instant> when) {
  itimerspec setting{};
  if (when) {
    // All zero would mean never.
    const nanoseconds moment = std::max(when->time_since_epoch(), nanoseconds(1));
    const auto whole = std::chrono::floor<seconds>(moment);
    setting.it_value.tv_sec = whole.count();
    setting.it_value.tv_nsec = (moment - whole).count();
  }
  ::timerfd_settime(descriptor_, TFD_TIMER_ABSTIME, &setting, nullptr);
}

}  // namespace orvane
