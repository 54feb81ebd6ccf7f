// What callers may rely on, whichever keychain they are given: the desktop's own service, in a
// session of the test's, or the stand-in that other tests build on.

#include "platform/eventloop/real_time.h"
#include "platform/keychain/secret_service_keychain.h"
#include "support/memory_keychain.h"
#include "support/run_task.h"

namespace orvane::test {
namespace {

enum class Subject { service, memory };

class KeychainContractTest : public testing::TestWithParam<Subject> {
 protected:
  template <class T>
  T run(Task<T> task) {
    return GetParam() == Subject::service ? realTime.run(std::move(task))
                                          : runTask(virtualTime, std::move(task));
  }
  std::optional<KeychainItem> read(const KeychainQuery& query) {
    return run(keychain.copyMatching(query, KeychainPrompt::never));
  }
  KeychainStatus add(const KeychainQuery& query, const std::string& data) {
    return run(keychain.add(query, data, KeychainPrompt::never));
  }
  KeychainStatus update(const KeychainQuery& query, const std::string& data) {
    return run(keychain.update(query, data, KeychainPrompt::never));
  }
  KeychainStatus remove(const KeychainQuery& query) {
    return run(keychain.remove(query, KeychainPrompt::never));
  }
  [[nodiscard]] KeychainQuery inGroup(const char* group) const {
    return {.service = token.service, .account = token.account, .accessGroup = group};
  }

  RealTime realTime;
  SessionBus bus{*realTime.executor};
  SecretServiceKeychain service{bus};
  VirtualExecutor virtualTime;
  MemoryKeychain memory;
  Keychain& keychain = GetParam() == Subject::service ? static_cast<Keychain&>(service) : memory;
  // The service keeps what earlier tests left.
  KeychainQuery token{.service = testing::UnitTest::GetInstance()->current_test_info()->name(),
                      .account = "token"};
};

INSTANTIATE_TEST_SUITE_P(Keychains, KeychainContractTest,
                         testing::Values(Subject::service, Subject::memory), [](const auto& each) {
                           return each.param == Subject::service ? "Service" : "Memory";
                         });

TEST_P(KeychainContractTest, AnAddedItemIsFoundByServiceAndAccountTogether) {
  EXPECT_FALSE(read(token));
  EXPECT_EQ(add(token, "secret"), KeychainStatus::success);
  const auto item = read(token);
  ASSERT_TRUE(item);
  EXPECT_EQ(item->data, "secret");
  EXPECT_EQ(item->accessGroup, std::nullopt);
  EXPECT_FALSE(read({.service = token.service, .account = "other"}));
  EXPECT_FALSE(read({.service = "other", .account = token.account}));
}

TEST_P(KeychainContractTest, DataAreBytesAndNotText) {
  const std::string bytes("\xff\0\xc3(\n", 5);
  EXPECT_EQ(add(token, bytes), KeychainStatus::success);
  EXPECT_EQ(read(token)->data, bytes);
  EXPECT_EQ(update(token, "grüße"), KeychainStatus::success);
  EXPECT_EQ(read(token)->data, "grüße");
}

TEST_P(KeychainContractTest, UpdateReplacesAndNeverAdds) {
  EXPECT_EQ(update(token, "new"), KeychainStatus::itemNotFound);
  EXPECT_FALSE(read(token));
  add(inGroup("a"), "old");
  EXPECT_EQ(update(inGroup("b"), "new"), KeychainStatus::itemNotFound);
  EXPECT_EQ(update(token, "new"), KeychainStatus::success);
  EXPECT_EQ(read(token)->data, "new");
  EXPECT_EQ(read(token)->accessGroup, "a") << "the group is kept";
}

TEST_P(KeychainContractTest, AddingWhatExistsChangesNothing) {
  add(inGroup("a"), "first");
  EXPECT_EQ(add(inGroup("a"), "second"), KeychainStatus::failed);
  EXPECT_EQ(read(token)->data, "first");
  EXPECT_EQ(add(inGroup("b"), "of another group"), KeychainStatus::success);
  EXPECT_EQ(read(inGroup("a"))->data, "first");
  EXPECT_EQ(read(inGroup("b"))->data, "of another group");
}

TEST_P(KeychainContractTest, RemoveTakesEveryMatchAndNothingElse) {
  EXPECT_EQ(remove(token), KeychainStatus::itemNotFound);
  for (const char* group : {"a", "b", "c"}) {
    add(inGroup(group), group);
  }
  const KeychainQuery neighbour{.service = token.service, .account = "neighbour"};
  add(neighbour, "stays");
  EXPECT_EQ(remove(inGroup("b")), KeychainStatus::success);
  EXPECT_FALSE(read(inGroup("b")));
  EXPECT_TRUE(read(inGroup("a")));
  EXPECT_EQ(remove(token), KeychainStatus::success);
  EXPECT_FALSE(read(token));
  EXPECT_TRUE(read(neighbour));
}

template <class T>
Task<T> cancelledAtOnce(Task<T> task) {
  const TaskContext context = co_await currentContext();
  std::stop_source stopped;
  stopped.request_stop();
  ChildTask<T> child({context.executor, stopped.get_token()}, std::move(task));
  T result = co_await child.result();
  co_return result;
}

TEST_P(KeychainContractTest, ACancelledCallHasFailedAndChangedNothing) {
  const auto cancelled = [this](auto task) { return run(cancelledAtOnce(std::move(task))); };
  const auto never = KeychainPrompt::never;
  EXPECT_EQ(cancelled(keychain.add(token, "secret", never)), KeychainStatus::failed);
  EXPECT_FALSE(read(token));
  add(token, "secret");
  EXPECT_EQ(cancelled(keychain.update(token, "new", never)), KeychainStatus::failed);
  EXPECT_EQ(cancelled(keychain.remove(token, never)), KeychainStatus::failed);
  EXPECT_EQ(read(token)->data, "secret");
  EXPECT_FALSE(cancelled(keychain.copyMatching(token, never)));
}

}  // namespace
}  // namespace orvane::test
