#include <QCoreApplication>
#include <QWidget>

#include <gtest/gtest.h>

#include "shell/views/balance_view.h"

namespace orvane::test {
namespace {

class CoalescedUpdateTest : public testing::Test {
 protected:
  void request(int times) {
    for (int i = 0; i < times; ++i) {
      update.request();
    }
  }
  int updatesAfterTurn() {
    QCoreApplication::processEvents();
    return std::exchange(updates, 0);
  }

  QWidget view;
  int updates = 0;
  CoalescedUpdate update{view, [this] { ++updates; }};
};

TEST_F(CoalescedUpdateTest, AHundredAnnouncementsInOneTurnRedrawOnce) {
  view.show();
  request(100);
  EXPECT_EQ(updates, 0);
  EXPECT_EQ(updatesAfterTurn(), 1);
  EXPECT_EQ(updatesAfterTurn(), 0);
}

TEST_F(CoalescedUpdateTest, OutOfSightNothingIsRedrawnUntilTheViewShows) {
  request(3);
  EXPECT_EQ(updatesAfterTurn(), 0);
  view.show();
  EXPECT_EQ(updatesAfterTurn(), 1);
  view.hide();
  request(3);
  EXPECT_EQ(updatesAfterTurn(), 0);
  view.show();
  EXPECT_EQ(updatesAfterTurn(), 1);
  view.hide();
  view.show();
  EXPECT_EQ(updatesAfterTurn(), 0);
}

TEST_F(CoalescedUpdateTest, ARequestMadeDuringAnUpdateIsNotLost) {
  int left = 2;
  QWidget other;
  CoalescedUpdate* self = nullptr;
  CoalescedUpdate repeating(other, [&] {
    ++updates;
    if (--left > 0) { self->request(); }
  });
  self = &repeating;
  other.show();
  repeating.request();
  EXPECT_EQ(updatesAfterTurn() + updatesAfterTurn(), 2);
}

}  // namespace
}  // namespace orvane::test
