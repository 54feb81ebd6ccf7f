// The program as it is shipped, but for the hosts it talks to and the pace of its clock:
// bench_orvane SPEED POOL EXPLORER PRICE FALLBACK AUTHORITY

#include <QSslCertificate>
#include <QSslConfiguration>
#include <cstdlib>
#include "platform/eventloop/qt_executor.h"
#include "shell/app/fast_executor.h"
#include "shell/app/program.h"

namespace {
constexpr int argumentsNeeded = 7;

std::unique_ptr<orvane::Executor> executorAt(int speed) {
  if (speed == 1) { return std::make_unique<orvane::QtExecutor>(); }
  return std::make_unique<orvane::test::FastExecutor>(speed);
}

/// A user's roots are found one by one as they are needed. The program's own option for one more
/// would read them all, which takes 2 MB that no user has.
void trustAlone(const char* authority) {
  QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
  tls.setCaCertificates(QSslCertificate::fromPath(QString::fromUtf8(authority)));
  QSslConfiguration::setDefaultConfiguration(tls);
}
}  // namespace

int main(int argc, char** argv) {
  if (argc != argumentsNeeded) { return 2; }
  return orvane::runProgram(
      1, argv,
      {.hosts = {.pool = argv[2], .explorer = argv[3], .price = argv[4], .fallbackPrice = argv[5]},
       .poolWebHost = "pool.test",
       .explorerWebHost = "explorer.test",
       .extraCaFile = "",
       .keychainAccessGroups = "TEAM.com.quorvex.hashwick.shared",
       .brandUrl = "",
       .version = "1.0.0",
       .makeExecutor = [speed = std::atoi(argv[1]), authority = argv[6]] {
         if (*authority != '\0') { trustAlone(authority); }
         return executorAt(speed);
       }});
}
