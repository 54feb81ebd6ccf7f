#include "address/watched_address_client.h"

#include <cstdint>
#include <optional>
#include <utility>

#include "address/address_summary.h"
#include "address/explorer_documents.h"
#include "platform/async/task_scope.h"
#include "platform/text/unicode.h"

namespace orvane {

namespace {

using Kind = ExplorerError::Kind;

template <class T>
using Result = std::expected<T, ExplorerError>;

ExplorerError errorOf(HttpFailure failure) {
  switch (failure) {
    case HttpFailure::invalidUrl:
      return {.kind = Kind::badURL};
    case HttpFailure::cancelled:
      return {.kind = Kind::cancelled};
    case HttpFailure::notConnectedToInternet:
    case HttpFailure::networkConnectionLost:
    case HttpFailure::cannotFindHost:
    case HttpFailure::cannotConnectToHost:
    case HttpFailure::timedOut:
    case HttpFailure::other:
      break;
  }
  return {.kind = Kind::transport, .failure = failure};
}

std::string addressPath(std::string_view address) { return "/address/" + percentEscaped(address); }

}  // namespace

WatchedAddressClient::WatchedAddressClient(HttpTransport& transport, std::string explorerHost)
    : transport_(transport), explorerBaseURL_("https://" + std::move(explorerHost) + "/api") {}

Task<Result<std::string>> WatchedAddressClient::fetchData(std::string path) {
  HttpRequest request{.url = explorerBaseURL_ + path};
  HttpResult answer = co_await transport_.get(std::move(request));
  if (!answer) { co_return std::unexpected(errorOf(answer.error())); }
  if (!answer->isSuccess()) { co_return std::unexpected(ExplorerError{Kind::badServerResponse}); }
  co_return std::move(answer->body);
}

template <class Record>
Task<Result<Record>> WatchedAddressClient::fetchJSON(
    std::string path, std::optional<Record> (*decode)(std::string_view body)) {
  const Result<std::string> body = co_await fetchData(std::move(path));
  if (!body) { co_return std::unexpected(body.error()); }
  std::optional<Record> record = decode(*body);
  if (!record) { co_return std::unexpected(ExplorerError{Kind::decoding}); }
  co_return *std::move(record);
}

Task<Result<std::string>> WatchedAddressClient::fetchText(std::string path) {
  const Result<std::string> body = co_await fetchData(std::move(path));
  if (!body) { co_return std::unexpected(body.error()); }
  co_return decodedLossily(*body);
}

Task<Result<AddressStats>> WatchedAddressClient::fetchAddressStats(std::string_view address) {
  return fetchJSON(addressPath(address), &decodeAddressStats);
}

Task<Result<std::vector<Transaction>>> WatchedAddressClient::fetchTransactions(
    std::string_view address) {
  return fetchJSON(addressPath(address) + "/txs", &decodeTransactions);
}

Task<Result<std::string>> WatchedAddressClient::fetchTipHeightText() {
  return fetchText("/blocks/tip/height");
}

Task<Result<WatchedAddressSummary>> WatchedAddressClient::summary(std::string address) {
  const TaskContext context = co_await currentContext();
  ChildTask totalsRequest(context, fetchAddressStats(address));
  ChildTask transactionsRequest(context, fetchTransactions(address));
  ChildTask tipRequest(context, fetchTipHeightText());

  const Result<AddressStats> totals = co_await totalsRequest.result();
  if (!totals) {
    co_await cancelAndAwaitEnd(transactionsRequest, tipRequest);
    co_return std::unexpected(totals.error());
  }
  const Result<std::vector<Transaction>> transactions = co_await transactionsRequest.result();
  if (!transactions) {
    co_await cancelAndAwaitEnd(tipRequest);
    co_return std::unexpected(transactions.error());
  }
  const Result<std::string> tip = co_await tipRequest.result();
  if (!tip) { co_return std::unexpected(tip.error()); }
  const std::optional<std::int64_t> tipHeight = parseTipHeight(*tip);
  if (!tipHeight) { co_return std::unexpected(ExplorerError{Kind::cannotParseResponse}); }
  co_return buildSummary(*totals, *transactions, *tipHeight, address);
}

}  // namespace orvane
