#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include "address/address_summary.h"
#include "address/explorer_documents.h"
#include "platform/async/task.h"
#include "platform/http/http_transport.h"

namespace orvane {
/// Reads one Bitcoin address from a public block explorer. Needs no account and keeps nothing
/// between calls; any number of calls may run at once.
class WatchedAddressClient {
 public:
  /// `explorerHost` is "host[:port]".
  WatchedAddressClient(HttpTransport& transport, std::string explorerHost);

  /// Three requests side by side: totals, transactions, tip. Their failures count in this order,
  /// and no request outlives the call.
  [[nodiscard]] Task<ExplorerResult<WatchedAddressSummary>> summary(std::string address);

  [[nodiscard]] Task<ExplorerResult<AddressStats>> fetchAddressStats(std::string_view address);
  [[nodiscard]] Task<ExplorerResult<std::vector<Transaction>>> fetchTransactions(
      std::string_view address);
  [[nodiscard]] Task<ExplorerResult<std::string>> fetchTipHeightText();

 private:
  /// The body of the answer to one GET; `path` begins with "/".
  [[nodiscard]] Task<ExplorerResult<std::string>> fetchData(std::string path);
  [[nodiscard]] Task<ExplorerResult<std::string>> fetchText(std::string path);
  template <class Record>
  [[nodiscard]] Task<ExplorerResult<Record>> fetchJSON(
      std::string path, std::optional<Record> (*decode)(std::string_view body));

  HttpTransport& transport_;
  std::string explorerBaseURL_;
};
}  // namespace orvane
