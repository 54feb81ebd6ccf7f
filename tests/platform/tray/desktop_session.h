#pragma once

#include <QProcess>
#include <QTest>

namespace orvane::test {

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
