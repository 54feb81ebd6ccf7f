#include "address/new_payment_notifications.h"
#include <gmock/gmock.h>
#include "support/fake_notification_center.h"
#include "support/memory_defaults.h"
#include "support/virtual_executor.h"

namespace orvane::test { namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

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
  std::optional<NewPaymentNotifications> notifications{
      std::in_place, executor,
      defaults,      center,
      format,        [this](std::int64_t sats) { return format.integer(sats) + " sats"; }};
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
}

TEST_F(NewPaymentNotificationsTest, WhatWasSeenIsKeptForItsAddressAndForgottenForAnother) {
  notifications->watch("mine");
  accept({payment("old")});
  notifications->watch("mine");  // as the next start does
  accept({payment("old"), payment("night")});
  notifications->watch("another");
  accept({payment("old"), payment("its own")});
  notifications->watch("mine");
  accept({payment("old"), payment("meanwhile")});
  EXPECT_THAT(identifiers(), ElementsAre("address-night"));
}

TEST_F(NewPaymentNotificationsTest, PostsOneAfterTheOtherInTheirOrderAlsoPastOneThatFails) {
  accept({});
  center.delay = 1s;
  center.refused = {"address-z"};
  accept({payment("z"), payment("a"), payment("z"), payment("m")});
  executor.advance(1s);
  EXPECT_THAT(identifiers(), ElementsAre("address-z"));
  executor.advance(1h);
  EXPECT_THAT(identifiers(), ElementsAre("address-z", "address-a", "address-m"));
  EXPECT_EQ(center.authorizationRequests(), 1);
}

TEST_F(NewPaymentNotificationsTest, TellsOfMoreThanAHundredAtOnceInOne) {
  const auto payments = [](int count, const std::string& name) {
    std::vector<WatchedAddressTransaction> result;
    for (int index = 0; index < count; ++index) {
      result.push_back(payment(name + std::to_string(index), 1000));
    }
    return result;
  };
  accept({});
  accept(payments(100, "few"));
  EXPECT_EQ(center.received().size(), 100U);
  accept(payments(101, "many"));
  ASSERT_EQ(center.received().size(), 101U);
  EXPECT_EQ(center.received().back(),
            (NotificationRequest{"address-joint", "101 payments received",
                                 "101,000 sats in all to your watched address."}));
}

TEST_F(NewPaymentNotificationsTest, WhatMayNotBeShownIsNotAnnouncedLater) {
  accept({});
  center.grantsAuthorization = false;
  accept({payment("a")});
  center.grantsAuthorization = true;
  accept({payment("a")});
  EXPECT_THAT(identifiers(), IsEmpty());
}

TEST_F(NewPaymentNotificationsTest, WritesTheTexts) {
  accept({});
  accept({payment("p"),
          {.txid = "r", .sats = 312500000, .isCoinbase = true, .blockHeight = 840000},
          {.txid = "u", .sats = 1, .isCoinbase = true, .blockHeight = {}}});
  const std::string end = " to your watched address. It can be spent after 100 confirmations.";
  using Request = NotificationRequest;
  using enum NotificationSound;
  EXPECT_THAT(center.received(),
              ElementsAre(Request{"address-p", "Payment received",
                                  "12,345 sats to your watched address.", standard},
                          Request{"address-r", "Block reward received",
                                  "312,500,000 sats from block #840,000" + end, critical},
                          Request{"address-u", "Block reward received",
                                  "1 sats from block #—" + end, critical}));
}

}}  // namespace orvane::test
