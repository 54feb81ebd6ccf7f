#include "address/new_payment_notifications.h"

#include <gmock/gmock.h>

#include "support/fake_notification_center.h"
#include "support/memory_defaults.h"
#include "support/virtual_executor.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

const std::string key = "balance.watchedAddressSeenTransactions";

WatchedAddressTransaction payment(std::string txid, std::int64_t sats = 12345) {
  return {.txid = std::move(txid), .sats = sats, .isCoinbase = false};
}

class NewPaymentNotificationsTest : public testing::Test {
 protected:
  /// What the store does with a summary that lists `incoming`, and all that follows.
  void accept(std::vector<WatchedAddressTransaction> incoming) {
    notifications->notifyNewTransactions({.incoming = std::move(incoming)});
    executor.runUntilIdle();
  }
  std::vector<std::string> identifiers() const {
    std::vector<std::string> result;
    for (const NotificationRequest& request : center.received()) {
      result.push_back(request.identifier);
    }
    return result;
  }

  VirtualExecutor executor;
  MemoryDefaults defaults;
  FakeNotificationCenter center;
  LocaleFormat format{LocaleNames{.numbers = "en_US", .dates = "en_US"}};
  std::unique_ptr<NewPaymentNotifications> notifications =
      std::make_unique<NewPaymentNotifications>(
          executor, defaults, center, format,
          [this](std::int64_t sats) { return format.integer(sats) + " sats"; });
};

TEST_F(NewPaymentNotificationsTest, AnnouncesAPaymentOnceWhetherConfirmedOrNot) {
  accept({payment("old")});
  accept({payment("new"), payment("old")});
  WatchedAddressTransaction confirmed = payment("new");
  confirmed.blockHeight = 850000;
  accept({confirmed, payment("old")});
  accept({});
  accept({confirmed});
  EXPECT_THAT(identifiers(), ElementsAre("address-new"));
  EXPECT_THAT(defaults.texts(key).value(), UnorderedElementsAre("old", "new"));
}

TEST_F(NewPaymentNotificationsTest, KeepsTheOrderUnderOneAuthorization) {
  accept({});
  accept({payment("z"), payment("a"), payment("z"), payment("m")});
  EXPECT_THAT(identifiers(), ElementsAre("address-z", "address-a", "address-m"));
  EXPECT_EQ(center.authorizationRequests(), 1);
}

TEST_F(NewPaymentNotificationsTest, WaitsForEachBeforeTheNext) {
  accept({});
  center.delay = 1s;
  accept({payment("a"), payment("b")});
  EXPECT_THAT(identifiers(), IsEmpty());
  executor.advance(1s);
  EXPECT_THAT(identifiers(), ElementsAre("address-a"));
  executor.advance(1s);
  EXPECT_THAT(identifiers(), ElementsAre("address-a", "address-b"));
}

TEST_F(NewPaymentNotificationsTest, OneThatFailsDoesNotStopTheNext) {
  accept({});
  center.refused = {"address-a"};
  accept({payment("a"), payment("b")});
  EXPECT_EQ(center.shown().at(0).identifier, "address-b");
}

TEST_F(NewPaymentNotificationsTest, WhatWasRefusedIsNotAnnouncedLater) {
  accept({});
  center.grantsAuthorization = false;
  accept({payment("a")});
  center.grantsAuthorization = true;
  accept({payment("a")});
  EXPECT_THAT(identifiers(), IsEmpty());
  EXPECT_EQ(center.authorizationRequests(), 1);
  EXPECT_THAT(defaults.texts(key).value(), ElementsAre("a"));
}

TEST_F(NewPaymentNotificationsTest, AStoredValueOfAnotherTypeIsANewBaseline) {
  defaults.setText(key, "old");
  accept({payment("a")});
  EXPECT_THAT(identifiers(), IsEmpty());
  EXPECT_THAT(defaults.texts(key).value(), ElementsAre("a"));
}

TEST_F(NewPaymentNotificationsTest, RecordsBeforeItReturnsAndPostsAfterwards) {
  accept({});
  notifications->notifyNewTransactions({.incoming = {payment("a")}});
  EXPECT_THAT(defaults.texts(key).value(), ElementsAre("a"));
  EXPECT_EQ(center.authorizationRequests(), 0);
}

TEST_F(NewPaymentNotificationsTest, PostsNothingAfterItsEnd) {
  accept({});
  center.delay = 1s;
  accept({payment("a"), payment("b")});
  notifications.reset();
  executor.advance(1h);
  EXPECT_THAT(center.received(), IsEmpty());
}

TEST_F(NewPaymentNotificationsTest, WritesTheTexts) {
  accept({});
  accept({payment("p"),
          {.txid = "r", .sats = 312500000, .isCoinbase = true, .blockHeight = 840000},
          {.txid = "u", .sats = 1, .isCoinbase = true, .blockHeight = {}}});
  EXPECT_THAT(
      center.received(),
      ElementsAre(
          NotificationRequest{.identifier = "address-p",
                              .title = "Payment received",
                              .body = "12,345 sats to your watched address.",
                              .sound = NotificationSound::standard},
          NotificationRequest{.identifier = "address-r",
                              .title = "Block reward received",
                              .body = "312,500,000 sats from block #840,000 to your watched "
                                      "address. It can be spent after 100 confirmations.",
                              .sound = NotificationSound::critical},
          NotificationRequest{.identifier = "address-u",
                              .title = "Block reward received",
                              .body = "1 sats from block #— to your watched address. It can be "
                                      "spent after 100 confirmations.",
                              .sound = NotificationSound::critical}));
}

}  // namespace
}  // namespace orvane::test
