#pragma once

#include <functional>
#include <map>
#include <string>

/// The answers of the two price sources, with the members that are read of them.
namespace orvane {

/// The primary source's.
struct CurrentPriceResponse {
  struct Bitcoin {
    double eur = 0;
    double usd = 0;
  };
  Bitcoin bitcoin;
};

/// The fallback source's.
struct CoinbasePriceResponse {
  struct Data {
    /// What one bitcoin is worth, by currency code in upper case, as number texts.
    std::map<std::string, std::string, std::less<>> rates;
  };
  Data data;
};

}  // namespace orvane
