#include <gtest/gtest.h>

#include "platform/eventloop/real_time.h"
#include "platform/keychain/secret_service_keychain.h"
#include "support/memory_keychain.h"
#include "support/run_task.h"

namespace orvane::test {
namespace {

/// The desktop's own service, in a session of the test's.
class RealSubject : public RealTime {
 public:
  SessionBus bus{*executor};
  SecretServiceKeychain keychain{bus};
};

/// The stand-in that other tests build on.
class MemorySubject {
 public:
  template <class T>
  T run(Task<T> task) {
    return runTask(*executor, std::move(task));
  }
  std::unique_ptr<VirtualExecutor> executor = std::make_unique<VirtualExecutor>();
  MemoryKeychain keychain;
};

/// What callers may rely on, whichever keychain they are given.
template <class Subject>
class KeychainContractTest : public ::testing::Test {
 protected:
  std::optional<KeychainItem> read(const KeychainQuery& query) {
    return subject.run(keychain.copyMatching(query, KeychainPrompt::never));
  }
  KeychainStatus add(const KeychainQuery& query, const std::string& data) {
    return subject.run(keychain.add(query, data, KeychainPrompt::never));
  }
  KeychainStatus update(const KeychainQuery& query, const std::string& data) {
    return subject.run(keychain.update(query, data, KeychainPrompt::never));
  }
  KeychainStatus remove(const KeychainQuery& query) {
    return subject.run(keychain.remove(query, KeychainPrompt::never));
  }

  Subject subject;
  Keychain& keychain = subject.keychain;
  // The service keeps what earlier tests left.
  KeychainQuery token{.service = ::testing::UnitTest::GetInstance()->current_test_info()->name(),
                      .account = "token"};
};

using Subjects = ::testing::Types<RealSubject, MemorySubject>;
TYPED_TEST_SUITE(KeychainContractTest, Subjects, );

KeychainQuery inGroup(KeychainQuery query, std::string group) {
  query.accessGroup = std::move(group);
  return query;
}

TYPED_TEST(KeychainContractTest, AnAddedItemIsFoundByServiceAndAccountTogether) {
  EXPECT_FALSE(this->read(this->token));
  EXPECT_EQ(this->add(this->token, "secret"), KeychainStatus::success);
  const auto item = this->read(this->token);
  ASSERT_TRUE(item);
  EXPECT_EQ(item->data, "secret");
  EXPECT_EQ(item->accessGroup, std::nullopt);
  EXPECT_FALSE(this->read({.service = this->token.service, .account = "other"}));
  EXPECT_FALSE(this->read({.service = "other", .account = this->token.account}));
}

TYPED_TEST(KeychainContractTest, DataAreBytesAndNotText) {
  const std::string bytes("\xff\0\xc3(\n", 5);
  EXPECT_EQ(this->add(this->token, bytes), KeychainStatus::success);
  EXPECT_EQ(this->read(this->token)->data, bytes);
  EXPECT_EQ(this->update(this->token, "grüße"), KeychainStatus::success);
  EXPECT_EQ(this->read(this->token)->data, "grüße");
}

TYPED_TEST(KeychainContractTest, UpdateReplacesAndNeverAdds) {
  EXPECT_EQ(this->update(this->token, "new"), KeychainStatus::itemNotFound);
  EXPECT_FALSE(this->read(this->token));
  this->add(inGroup(this->token, "a"), "old");
  EXPECT_EQ(this->update(inGroup(this->token, "b"), "new"), KeychainStatus::itemNotFound);
  EXPECT_EQ(this->update(this->token, "new"), KeychainStatus::success);
  const auto item = this->read(this->token);
  ASSERT_TRUE(item);
  EXPECT_EQ(item->data, "new");
  EXPECT_EQ(item->accessGroup, "a") << "the group is kept";
}

TYPED_TEST(KeychainContractTest, AddingWhatExistsChangesNothing) {
  this->add(inGroup(this->token, "a"), "first");
  EXPECT_EQ(this->add(inGroup(this->token, "a"), "second"), KeychainStatus::failed);
  EXPECT_EQ(this->read(this->token)->data, "first");
  EXPECT_EQ(this->add(inGroup(this->token, "b"), "of another group"), KeychainStatus::success);
  EXPECT_EQ(this->read(inGroup(this->token, "a"))->data, "first");
  EXPECT_EQ(this->read(inGroup(this->token, "b"))->data, "of another group");
}

TYPED_TEST(KeychainContractTest, RemoveTakesEveryMatchAndNothingElse) {
  EXPECT_EQ(this->remove(this->token), KeychainStatus::itemNotFound);
  for (const char* group : {"a", "b", "c"}) {
    this->add(inGroup(this->token, group), group);
  }
  const KeychainQuery neighbour{.service = this->token.service, .account = "neighbour"};
  this->add(neighbour, "stays");

  EXPECT_EQ(this->remove(inGroup(this->token, "b")), KeychainStatus::success);
  EXPECT_FALSE(this->read(inGroup(this->token, "b")));
  EXPECT_TRUE(this->read(inGroup(this->token, "a")));
  EXPECT_EQ(this->remove(this->token), KeychainStatus::success);
  EXPECT_FALSE(this->read(this->token));
  EXPECT_TRUE(this->read(neighbour));
}

template <class T>
Task<T> cancelledAtOnce(Task<T> task) {
  const TaskContext context = co_await currentContext();
  std::stop_source stopped;
  stopped.request_stop();
  const TaskContext cancelled{context.executor, stopped.get_token()};
  ChildTask<T> child(cancelled, std::move(task));
  T result = co_await child.result();
  co_return result;
}

TYPED_TEST(KeychainContractTest, ACancelledCallHasFailedAndChangedNothing) {
  const auto status = [this](Task<KeychainStatus> task) {
    return this->subject.run(cancelledAtOnce(std::move(task)));
  };
  EXPECT_EQ(status(this->keychain.add(this->token, "secret", KeychainPrompt::never)),
            KeychainStatus::failed);
  EXPECT_FALSE(this->read(this->token));
  this->add(this->token, "secret");
  EXPECT_EQ(status(this->keychain.update(this->token, "new", KeychainPrompt::never)),
            KeychainStatus::failed);
  EXPECT_EQ(status(this->keychain.remove(this->token, KeychainPrompt::never)),
            KeychainStatus::failed);
  EXPECT_EQ(this->read(this->token)->data, "secret");
  EXPECT_FALSE(this->subject.run(
      cancelledAtOnce(this->keychain.copyMatching(this->token, KeychainPrompt::never))));
}

}  // namespace
}  // namespace orvane::test
