#pragma once

#include <QProcess>
#include <functional>

namespace orvane::test {

/// Lets the event loop run until `condition` holds; false when it did not within five seconds.
[[nodiscard]] bool waitUntil(const std::function<bool()>& condition);

/// Lets everything happen that is on its way, for as long as a tray host would need to answer.
void letSettle();

/// A session bus of the test's own that can be taken away. The address stays the same.
class PrivateBus {
 public:
  ~PrivateBus() { stop(); }
  void start();
  void stop();

 private:
  QProcess daemon_;
};

/// The bus of this process, running from before the application object on.
[[nodiscard]] PrivateBus& privateBus();

}  // namespace orvane::test
