#include "services/api/explorer_api.h"

#include <algorithm>
#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

#include "services/api/explorer_documents.h"

namespace orvane::services {
namespace {

constexpr std::string_view tipPath = "/api/blocks/tip/height";
constexpr std::string_view addressPrefix = "/api/address/";
constexpr std::string_view transactionsSuffix = "/txs";

bool isLetterOrDigit(char character) {
  return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') ||
         (character >= 'a' && character <= 'z');
}

bool mayBeAddress(std::string_view text) {
  return text.size() >= 14 && text.size() <= 90 && std::ranges::all_of(text, isLetterOrDigit);
}

}  // namespace

Response explorerAnswer(const Request& request, const Chain& chain) {
  if (request.target == tipPath) { return textResponse(200, std::to_string(chain.tipHeight())); }
  std::string_view rest = request.target;
  if (!rest.starts_with(addressPrefix)) { return textResponse(404, "There is nothing here"); }
  rest.remove_prefix(addressPrefix.size());
  const bool wantsTransactions = rest.ends_with(transactionsSuffix);
  if (wantsTransactions) { rest.remove_suffix(transactionsSuffix.size()); }
  if (!mayBeAddress(rest)) { return textResponse(400, "Invalid Bitcoin address"); }
  const nlohmann::json document =
      wantsTransactions ? transactionsDocument(chain.transactionsOf(rest))
                        : addressDocument(std::string(rest), chain.confirmedTotals(rest),
                                          chain.unconfirmedTotals(rest));
  return {.body = document.dump()};
}

}  // namespace orvane::services
