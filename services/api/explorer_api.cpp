#include <algorithm>
#include <nlohmann/json.hpp>
#include "services/api/answers.h"

namespace orvane::services {
namespace {
nlohmann::json statsObject(const AddressTotals& totals) {
  return {{"funded_txo_count", totals.fundedOutputs},
          {"funded_txo_sum", totals.fundedSats},
          {"spent_txo_count", totals.spentOutputs},
          {"spent_txo_sum", totals.spentSats},
          {"tx_count", totals.transactions}};
}

nlohmann::json inputObject(const ChainInput& input) {
  nlohmann::json object{{"is_coinbase", input.isCoinbase}, {"prevout", nullptr}};
  if (!input.isCoinbase) {
    object["prevout"] = {{"scriptpubkey_address", input.address}, {"value", input.sats}};
  }
  return object;
}

nlohmann::json outputObject(const ChainOutput& output) {
  nlohmann::json object{{"scriptpubkey_type", output.address ? "v0_p2wpkh" : "op_return"},
                        {"value", output.sats}};
  if (output.address) { object["scriptpubkey_address"] = *output.address; }
  return object;
}

nlohmann::json statusObject(const ChainTransaction& transaction) {
  nlohmann::json object{{"confirmed", transaction.blockHeight.has_value()}};
  if (transaction.blockHeight) { object["block_height"] = *transaction.blockHeight; }
  return object;
}

nlohmann::json transactionObject(const ChainTransaction& transaction) {
  nlohmann::json object{{"txid", transaction.txid},
                        {"version", 2},
                        {"vin", nlohmann::json::array()},
                        {"vout", nlohmann::json::array()},
                        {"status", statusObject(transaction)}};
  for (const ChainInput& input : transaction.inputs) {
    object["vin"].push_back(inputObject(input));
  }
  for (const ChainOutput& output : transaction.outputs) {
    object["vout"].push_back(outputObject(output));
  }
  return object;
}

nlohmann::json addressDocument(const std::string& address, const AddressTotals& confirmed,
                               const AddressTotals& unconfirmed) {
  return {{"address", address},
          {"chain_stats", statsObject(confirmed)},
          {"mempool_stats", statsObject(unconfirmed)}};
}

nlohmann::json transactionsDocument(const std::vector<ChainTransaction>& list) {
  nlohmann::json document = nlohmann::json::array();
  for (const ChainTransaction& transaction : list) {
    document.push_back(transactionObject(transaction));
  }
  return document;
}

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
