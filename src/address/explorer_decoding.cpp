#include "address/explorer_decoding.h"

#include <charconv>
#include <system_error>
#include <utility>

#include "platform/json/json_document.h"
#include "platform/json/json_reader.h"
#include "platform/text/unicode.h"

namespace orvane {
namespace {

AddressStats::Stats readStats(JsonValue value, JsonMatch& match) {
  const JsonObjectReader reader(value, match);
  return {.funded_txo_sum = reader.integer("funded_txo_sum"),
          .spent_txo_sum = reader.integer("spent_txo_sum")};
}

AddressStats readAddressStats(JsonValue value, JsonMatch& match) {
  const JsonObjectReader reader(value, match);
  AddressStats stats;
  stats.chain_stats = readStats(reader.value("chain_stats").value_or(JsonValue::null()), match);
  stats.mempool_stats = readStats(reader.value("mempool_stats").value_or(JsonValue::null()), match);
  return stats;
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

template <class Record>
std::vector<Record> readList(JsonValue value, JsonMatch& match,
                             Record (*read)(JsonValue, JsonMatch&)) {
  const JsonValue elements = arrayElements(value, match);
  std::vector<Record> records;
  records.reserve(elements.size());
  for (const JsonMember& element : elements) {
    records.push_back(read(element.value, match));
  }
  return records;
}

Transaction readTransaction(JsonValue value, JsonMatch& match) {
  const JsonObjectReader reader(value, match);
  const auto member = [&](std::string_view name) {
    return reader.value(name).value_or(JsonValue::null());
  };
  return {.txid = reader.text("txid"),
          .vin = readList(member("vin"), match, readInput),
          .vout = readList(member("vout"), match, readOutput),
          .status = readStatus(member("status"), match)};
}

std::vector<Transaction> readTransactions(JsonValue value, JsonMatch& match) {
  return readList(value, match, readTransaction);
}

template <class Record>
std::optional<Record> decode(std::string_view body, Record (*read)(JsonValue, JsonMatch&)) {
  const std::optional<JsonDocument> document = JsonDocument::parse(body);
  if (!document) {
    return std::nullopt;
  }
  JsonMatch match;
  Record record = read(document->root(), match);
  if (match.failed()) {
    return std::nullopt;
  }
  return record;
}

}  // namespace

std::optional<AddressStats> decodeAddressStats(std::string_view body) {
  return decode(body, readAddressStats);
}

std::optional<std::vector<Transaction>> decodeTransactions(std::string_view body) {
  return decode(body, readTransactions);
}

std::optional<std::int64_t> parseTipHeight(std::string_view text) {
  std::string_view number = trimmed(text);
  // The library reads a minus sign but no plus sign.
  if (number.starts_with('+') && !number.starts_with("+-")) {
    number.remove_prefix(1);
  }
  std::int64_t height = 0;
  const char* const begin = number.data();
  const char* const end = begin + number.size();
  const auto [next, error] = std::from_chars(begin, end, height);
  if (error != std::errc() || next != end) {
    return std::nullopt;
  }
  return height;
}

}  // namespace orvane
