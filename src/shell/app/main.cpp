#include "build_settings.h"
#include "platform/eventloop/qt_executor.h"
#include "shell/app/program.h"

int main(int argc, char** argv) {
  namespace built = orvane::build_settings;
  return orvane::runProgram(
      argc, argv,
      {.hosts = {.pool = built::poolHost,
                 .explorer = built::explorerHost,
                 .price = built::priceHost,
                 .fallbackPrice = built::fallbackPriceHost},
       .poolWebHost = built::poolWebHost,
       .explorerWebHost = built::explorerWebHost,
       .extraCaFile = built::extraCaFile,
       .keychainAccessGroups = built::keychainAccessGroups,
       .brandUrl = built::brandUrl,
       .version = built::version,
       .makeExecutor = [] { return std::make_unique<orvane::QtExecutor>(); }});
}
