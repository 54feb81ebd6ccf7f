#include <QCoreApplication>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fmt/format.h>
#include "services/command_line.h"
#include "services/local_services.h"

namespace {
constexpr int wrongUsage = 2;

sigset_t endingSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGTERM);
  sigaddset(&signals, SIGINT);
  return signals;
}

int serve(orvane::services::LocalServicesOptions options) {
  // Blocked before any thread starts, so that every thread leaves them to the wait below.
  const sigset_t ending = endingSignals();
  pthread_sigmask(SIG_BLOCK, &ending, nullptr);
  try {
    const orvane::services::LocalServices services(std::move(options));
    fmt::print("{}\n", services.description());
    std::fflush(stdout);
    int received = 0;
    sigwait(&ending, &received);
  } catch (const std::exception& problem) {
    fmt::print(stderr, "orvane-services: {}\n", problem.what());
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
}  // namespace

int main(int count, char** arguments) {
  // A reader of the ready line that has gone is no reason to end.
  std::signal(SIGPIPE, SIG_IGN);
  const QCoreApplication application(count, arguments);  // knows the arguments; its loop never runs
  auto commandLine = orvane::services::parseCommandLine(QCoreApplication::arguments());
  if (!commandLine) {
    fmt::print(stderr, "orvane-services: {} Try --help.\n", commandLine.error().toStdString());
    return wrongUsage;
  }
  if (commandLine->wantsHelp) {
    fmt::print("{}", orvane::services::helpText().toStdString());
    return EXIT_SUCCESS;
  }
  return serve(std::move(commandLine->options));
}
