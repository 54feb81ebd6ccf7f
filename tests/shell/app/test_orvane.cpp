// The program as it is shipped, but for the hosts it talks to and the pace of its clock:
// test_orvane pool-host explorer-host price-host fallback-host authority.pem

#include <array>
#include "shell/app/fast_executor.h"
#include "shell/app/program.h"

namespace {
constexpr int argumentsNeeded = 6;
constexpr int clockSpeed = 20;
}  // namespace

int main(int argc, char** argv) {
  if (argc != argumentsNeeded) { return 2; }
  return orvane::runProgram(
      1, argv,
      {.hosts = {.pool = argv[1], .explorer = argv[2], .price = argv[3], .fallbackPrice = argv[4]},
       .poolWebHost = "pool.test",
       .explorerWebHost = "explorer.test",
       .extraCaFile = argv[5],
       .keychainAccessGroups = "TEAM.com.quorvex.hashwick.shared",
       .brandUrl = "",
       .version = "1.0.0",
       .makeExecutor = [] { return std::make_unique<orvane::test::FastExecutor>(clockSpeed); }});
}
