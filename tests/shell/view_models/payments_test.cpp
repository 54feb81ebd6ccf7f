#include "shell/view_models/payments.h"
#include <gtest/gtest.h>

namespace orvane::test { namespace {

TEST(PaymentsTest, AreListedNewestFirstWithTheirConfirmations) {
  const LocaleFormat format({.numbers = "en_US", .dates = "en_US"});
  BalanceState state;
  EXPECT_EQ(paymentsHint(state), "No address is being watched.");
  state.watchedAddress = "bc1";
  EXPECT_EQ(paymentsHint(state), "The address has not been read yet.");
  state.addressSummary = WatchedAddressSummary();
  state.addressSummary->tipHeight = 2000;
  EXPECT_EQ(paymentsHint(state), "The explorer lists no payment to this address.");
  const std::string id(30, 'a');
  state.addressSummary->incoming = {
      {.txid = "old", .sats = 1, .blockHeight = 1},
      {.txid = "first", .sats = 12'345, .blockHeight = {}},
      {.txid = id + "7", .sats = 2, .isCoinbase = true, .blockHeight = 2000},
      {.txid = "second", .sats = 3, .blockHeight = {}},
      {.txid = "<b>" + id, .sats = 4, .blockHeight = 2001}};
  EXPECT_EQ(paymentsHint(state), "");
  std::string rows;
  for (const Payment& payment : incomingPayments(state)) {
    const PaymentRow row = paymentRow(payment, state, format);
    rows += row.amount + "|" + row.kind + "|" + row.confirmations + "|" + row.shortId + "\n";
    EXPECT_EQ(row.id, payment.transaction.txid);
  }
  EXPECT_EQ(rows,
            "12,345 sats|Payment|Unconfirmed|first\n"
            "3 sats|Payment|Unconfirmed|second\n"
            "4 sats|Payment|0|<b>aaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\n"
            "2 sats|Block reward|1|aaaaaaaa…aaaaaaa7\n"
            "1 sats|Payment|2,000|old\n");
  EXPECT_EQ(transactionUrl("e.test:1", "0aF"), "https://e.test:1/tx/0aF");
  EXPECT_EQ(transactionUrl("e.test", "../a?b ä"), "https://e.test/tx/%2E%2E%2Fa%3Fb%20%C3%A4");
}

}}  // namespace orvane::test
