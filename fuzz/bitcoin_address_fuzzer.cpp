// The shape of an address: whatever passes is short, of letters and digits, and goes into a path
// unchanged.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "address/bitcoin_address.h"
#include "platform/text/unicode.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const bool hasLength = text.size() >= 14 && text.size() <= 90;
  const bool staysAsItIs = orvane::percentEscaped(text) == text && orvane::trimmed(text) == text;
  if (orvane::isValidMainnetAddress(text) && !(hasLength && staysAsItIs)) { std::abort(); }
  return 0;
}
