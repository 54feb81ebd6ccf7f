// first_paint TITLE PROGRAM [ARGUMENT...]: starts the program, prints the milliseconds until its
// window of that title is on screen and painted, and ends it. It looks from outside, through the X
// server, so that every program is measured alike.

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/damage.h>
#include <xcb/xcb.h>

namespace {
using Clock = std::chrono::steady_clock;

constexpr unsigned patience = 60;  // seconds, after which this program ends without an answer

struct Free {
  void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using Owned = std::unique_ptr<Reply, Free>;

class Watcher {
 public:
  explicit Watcher(std::string_view title) : title_(title), x_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(x_) != 0) {
      std::fputs("first_paint: no display\n", stderr);
      std::exit(1);
    }
    root_ = xcb_setup_roots_iterator(xcb_get_setup(x_)).data->root;
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(x_, root_, XCB_CW_EVENT_MASK, &events);
    const auto* const damage = xcb_get_extension_data(x_, &xcb_damage_id);
    damageEvent_ = damage->first_event;
    Owned<void>(xcb_damage_query_version_reply(
        x_, xcb_damage_query_version(x_, XCB_DAMAGE_MAJOR_VERSION, XCB_DAMAGE_MINOR_VERSION),
        nullptr));
  }
  Watcher(const Watcher&) = delete;
  Watcher& operator=(const Watcher&) = delete;
  ~Watcher() { xcb_disconnect(x_); }

  /// Returns when the window is painted; false when the server has gone.
  bool awaitPaint() {
    while (const Owned<xcb_generic_event_t> event{xcb_wait_for_event(x_)}) {
      const int type = event->response_type & 0x7f;
      if (type == XCB_CREATE_NOTIFY) {
        follow(reinterpret_cast<const xcb_create_notify_event_t&>(*event).window);
      } else if (type == damageEvent_ + XCB_DAMAGE_NOTIFY) {
        const auto& damage = reinterpret_cast<const xcb_damage_notify_event_t&>(*event);
        if (titleOf(damage.drawable) == title_) { return true; }
      }
    }
    return false;
  }

 private:
  // From its creation on: followed from its mapping on, a window would count as drawn at once. The
  // toolkit's windows have no ground that the server would draw.
  void follow(xcb_window_t window) {
    xcb_damage_create(x_, xcb_generate_id(x_), window, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
    xcb_flush(x_);
  }

  std::string titleOf(xcb_window_t window) {
    constexpr std::uint32_t longest = 64;
    const Owned<xcb_get_property_reply_t> name(xcb_get_property_reply(
        x_,
        xcb_get_property(x_, 0, window, XCB_ATOM_WM_NAME, XCB_GET_PROPERTY_TYPE_ANY, 0, longest),
        nullptr));
    if (!name) { return {}; }
    return {static_cast<const char*>(xcb_get_property_value(name.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(name.get()))};
  }

  std::string title_;
  xcb_connection_t* x_;
  xcb_window_t root_ = XCB_WINDOW_NONE;
  int damageEvent_ = 0;
};
}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fputs("usage: first_paint TITLE PROGRAM [ARGUMENT...]\n", stderr);
    return 2;
  }
  alarm(patience);
  Watcher watcher(argv[1]);
  const auto start = Clock::now();
  const pid_t program = fork();
  if (program == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    execv(argv[2], argv + 2);
    _exit(127);
  }
  const bool isPainted = watcher.awaitPaint();
  const std::chrono::duration<double, std::milli> time = Clock::now() - start;
  kill(program, SIGKILL);
  waitpid(program, nullptr, 0);
  if (isPainted) { std::printf("%.2f\n", time.count()); }
  return isPainted ? 0 : 1;
}
