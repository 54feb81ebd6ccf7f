#include "platform/desktop/qt/termination_signals.h"
#include <atomic>
#include <cerrno>
#include <csignal>
#include <utility>
#include <sys/socket.h>
#include <unistd.h>

namespace orvane {
namespace {
constexpr std::array handledSignals{SIGTERM, SIGINT, SIGHUP};

/// A signal handler is a plain function and can be told where to write in no other way.
std::atomic<int> writingEnd = -1;

void handleSignal(int /*number*/) {
  const int before = errno;
  constexpr char byte = 1;
  // Nothing can be done about a failure here; a full socket holds a signal already.
  [[maybe_unused]] const auto written = write(writingEnd, &byte, sizeof byte);
  errno = before;
}

void handle(void (*handler)(int)) {
  struct sigaction action{};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  for (const int number : handledSignals) {
    sigaction(number, &action, nullptr);
  }
}

std::array<int, 2> connectedSockets() {
  std::array<int, 2> sockets{-1, -1};
  socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, sockets.data());
  return sockets;
}
}  // namespace

TerminationSignals::TerminationSignals(std::function<void()> onSignal)
    : sockets_(connectedSockets()),
      onSignal_(std::move(onSignal)),
      notifier_(sockets_[0], QSocketNotifier::Read) {
  if (sockets_[0] < 0) { return; }
  connect(&notifier_, &QSocketNotifier::activated, this, &TerminationSignals::receive);
  writingEnd = sockets_[1];
  handle(handleSignal);
}

TerminationSignals::~TerminationSignals() {
  if (sockets_[0] < 0) { return; }
  handle(SIG_DFL);
  writingEnd = -1;
  notifier_.setEnabled(false);
  for (const int socket : sockets_) {
    close(socket);
  }
}

void TerminationSignals::receive() {
  std::array<char, 16> bytes{};
  if (read(sockets_[0], bytes.data(), bytes.size()) > 0) { onSignal_(); }
}
}  // namespace orvane
