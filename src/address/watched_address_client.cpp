#include "address/watched_address_client.h"
#include <cstdint>
#include <utility>
#include "platform/async/task_scope.h"
#include "platform/text/unicode.h"

namespace orvane {
namespace {
std::string addressPath(std::string_view address) { return "/address/" + percentEscaped(address); }
}  // namespace

WatchedAddressClient::WatchedAddressClient(HttpTransport& transport, std::string explorerHost)
    : transport_(transport), explorerBaseURL_("https://" + std::move(explorerHost) + "/api") {}

Task<ExplorerResult<std::string>> WatchedAddressClient::fetchData(std::string path) {
  HttpRequest request{.url = explorerBaseURL_ + path};
  HttpResult answer = co_await transport_.get(std::move(request));
  co_return bodyOf<ExplorerError>(std::move(answer));
}

template <class Record>
Task<ExplorerResult<Record>> WatchedAddressClient::fetchJSON(
    std::string path, std::optional<Record> (*decode)(std::string_view body)) {
  const ExplorerResult<std::string> body = co_await fetchData(std::move(path));
  co_return decoded(body, decode);
}

Task<ExplorerResult<std::string>> WatchedAddressClient::fetchText(std::string path) {
  const ExplorerResult<std::string> body = co_await fetchData(std::move(path));
  if (!body) { co_return std::unexpected(body.error()); }
  co_return decodedLossily(*body);
}

Task<ExplorerResult<AddressStats>> WatchedAddressClient::fetchAddressStats(
    std::string_view address) {
  return fetchJSON(addressPath(address), &decodeAddressStats);
}

Task<ExplorerResult<std::vector<Transaction>>> WatchedAddressClient::fetchTransactions(
    std::string_view address) {
  return fetchJSON(addressPath(address) + "/txs", &decodeTransactions);
}

Task<ExplorerResult<std::string>> WatchedAddressClient::fetchTipHeightText() {
  return fetchText("/blocks/tip/height");
}

Task<ExplorerResult<WatchedAddressSummary>> WatchedAddressClient::summary(std::string address) {
  const TaskContext context = co_await currentContext();
  ChildTask totalsRequest(context, fetchAddressStats(address));
  ChildTask transactionsRequest(context, fetchTransactions(address));
  ChildTask tipRequest(context, fetchTipHeightText());

  const ExplorerResult<AddressStats> totals = co_await totalsRequest.result();
  if (!totals) {
    co_await cancelAndAwaitEnd(transactionsRequest, tipRequest);
    co_return std::unexpected(totals.error());
  }
  const ExplorerResult<std::vector<Transaction>> transactions =
      co_await transactionsRequest.result();
  if (!transactions) {
    co_await cancelAndAwaitEnd(tipRequest);
    co_return std::unexpected(transactions.error());
  }
  const ExplorerResult<std::string> tip = co_await tipRequest.result();
  if (!tip) { co_return std::unexpected(tip.error()); }
  const std::optional<std::int64_t> tipHeight = parseTipHeight(*tip);
  if (!tipHeight) {
    co_return std::unexpected(ExplorerError{ExplorerError::Kind::cannotParseResponse});
  }
  co_return buildSummary(*totals, *transactions, *tipHeight, address);
}
}  // namespace orvane
