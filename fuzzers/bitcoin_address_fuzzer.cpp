// The shape of an address: whatever passes is short, of letters and digits, and goes into a path
// unchanged.

#include "address/bitcoin_address.h"
#include "fuzzer.h"
#include "platform/text/unicode.h"

void orvane::tryInput(std::string_view text) {
  if (!isValidMainnetAddress(text)) { return; }
  require(text.size() >= 14 && text.size() <= 90);
  require(percentEscaped(text) == text && trimmed(text) == text);
}
