#include "address/explorer_documents.h"
#include <charconv>
#include <system_error>
#include "platform/json/json_reader.h"
#include "platform/text/unicode.h"

namespace orvane {
namespace {
/// Twice what the chain's own ids have, so that what is kept of them stays small.
constexpr std::size_t longestTransactionId = 128;

AddressStats::Stats readStats(JsonValue value, JsonMatch& match) {
  const JsonObjectReader reader(value, match);
  return {.funded_txo_sum = reader.integer("funded_txo_sum"),
          .spent_txo_sum = reader.integer("spent_txo_sum")};
}

AddressStats readAddressStats(JsonValue value, JsonMatch& match) {
  const JsonObjectReader reader(value, match);
  return {.chain_stats = readStats(reader.value("chain_stats"), match),
          .mempool_stats = readStats(reader.value("mempool_stats"), match)};
}

Transaction::Input readInput(JsonValue value, JsonMatch& match) {
  return {.is_coinbase = JsonObjectReader(value, match).boolean("is_coinbase")};
}

Transaction::Output readOutput(JsonValue value, JsonMatch& match) {
  const JsonObjectReader reader(value, match);
  return {.scriptpubkey_address = reader.optionalText("scriptpubkey_address"),
          .value = reader.integer("value")};
}

Transaction::Status readStatus(JsonValue value, JsonMatch& match) {
  const JsonObjectReader reader(value, match);
  return {.confirmed = reader.boolean("confirmed"),
          .block_height = reader.optionalInteger("block_height")};
}

Transaction readTransaction(JsonValue value, JsonMatch& match) {
  const JsonObjectReader reader(value, match);
  Transaction transaction{.txid = reader.text("txid"),
                          .vin = readJsonArray(reader.value("vin"), match, readInput),
                          .vout = readJsonArray(reader.value("vout"), match, readOutput),
                          .status = readStatus(reader.value("status"), match)};
  if (transaction.txid.size() > longestTransactionId) { match.fail(); }
  return transaction;
}

std::vector<Transaction> readTransactions(JsonValue value, JsonMatch& match) {
  return readJsonArray(value, match, readTransaction);
}
}  // namespace

std::optional<AddressStats> decodeAddressStats(std::string_view body) {
  return decodeJson(body, readAddressStats);
}

std::optional<std::vector<Transaction>> decodeTransactions(std::string_view body) {
  return decodeJson(body, readTransactions);
}

std::optional<std::int64_t> parseTipHeight(std::string_view text) {
  std::string_view number = trimmed(text);
  // The library reads a minus sign but no plus sign.
  if (number.starts_with('+') && !number.starts_with("+-")) { number.remove_prefix(1); }
  std::int64_t height = 0;
  const char* const begin = number.data();
  const char* const end = begin + number.size();
  const auto [next, error] = std::from_chars(begin, end, height);
  if (error != std::errc() || next != end) { return std::nullopt; }
  return height;
}
}  // namespace orvane
