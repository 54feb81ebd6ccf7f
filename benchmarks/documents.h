#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Documents of the sources' formats in sizes at which time begins to matter. Their contents are
/// invented; the same arguments always give the same bytes. As with the real sources, records
/// carry members that nobody reads.
namespace orvane::bench {
inline constexpr std::size_t workerTotal = 10'000;
inline constexpr std::size_t daysOfTwentyYears = 7305;
inline constexpr std::size_t transactionTotal = 10'000;
inline constexpr std::size_t outputsOfTransaction = 10;
inline constexpr std::string_view watchedAddress = "bc1qar0srrr7xfkvy5l643lydnw9re59gtzzwf5mdq";

/// The pool's profile of an account.
[[nodiscard]] std::string profileDocument();

/// The pool's workers, in every state, with names "pellam.rig00000" and up.
[[nodiscard]] std::string workersDocument(std::size_t workers);

/// The pool's daily rewards, one a day, newest day first.
[[nodiscard]] std::string rewardsDocument(std::size_t days);

/// The pool's daily hash rates of the same days.
[[nodiscard]] std::string dailyHashrateDocument(std::size_t days);

/// The explorer's transactions of `address`, newest first: in each, the last output pays it.
[[nodiscard]] std::string transactionsDocument(std::size_t transactions, std::size_t outputsEach,
                                               std::string_view address);
}  // namespace orvane::bench
