#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <array>
#include <functional>

namespace orvane {
/// Hears SIGTERM, SIGINT and SIGHUP, with which sessions and service managers end a program, and
/// passes them on in the event loop. One at a time; afterwards the signals kill again.
class TerminationSignals final : public QObject {
  Q_OBJECT

 public:
  explicit TerminationSignals(std::function<void()> onSignal);
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;
  ~TerminationSignals() override;

 private:
  void receive();

  std::array<int, 2> sockets_{-1, -1};
  std::function<void()> onSignal_;
  QSocketNotifier notifier_;
};
}  // namespace orvane
