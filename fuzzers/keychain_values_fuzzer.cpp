// What other programs may have left in the user's keychain: any bytes as the token (first line) and
// as the miner's address (second line), in any group (third line). What is sent of them fits into a
// header and a path, and what is shown is text.

#include <algorithm>
#include "core/keychain_items.h"
#include "fuzzer.h"
#include "platform/text/unicode.h"
#include "support/store_on_fakes.h"

namespace orvane {
namespace {
bool isPlain(char character) { return character >= ' ' && character <= '~'; }

void requireOneLine(const HttpRequest& request) {
  for (const HttpHeader& header : request.headers) {
    require(std::ranges::none_of(header.value.view(),
                                 [](char c) { return c == '\r' || c == '\n' || c == '\0'; }));
  }
  require(std::ranges::all_of(request.url, isPlain));
}
}  // namespace

void tryInput(std::string_view lines) {
  using namespace std::chrono_literals;
  test::StoreOnFakes program;
  program.storeToken(std::string(takeLine(lines)));
  program.storePayoutAddress(std::string(takeLine(lines)));
  for (test::MemoryKeychain::Item& item : program.keychain.items) {
    item.accessGroup = std::string(takeLine(lines));
  }
  std::erase_if(program.keychain.items, [](const auto& item) { return item.data.empty(); });
  const std::size_t items = program.keychain.items.size();
  program.start();
  program.store->loadHistory();
  program.executor.advance(11min);
  for (const test::ScriptedTransport::Sent& sent : program.transport.sent()) {
    requireOneLine(sent.request);
  }
  require(isValidUtf8(program.state().token) && isValidUtf8(program.state().ownAddress));
  require(program.keychain.items.size() == items);  // moved perhaps, but none lost or doubled
}
}  // namespace orvane
