#include "platform/http/proxy_lookup.h"
#include <QFutureWatcher>
#include <QPromise>
#include <QThreadPool>
#include <memory>
#include <utility>
#include "platform/async/completion.h"

namespace orvane {
// The one place with a thread beside the main one. The system's resolver may fetch a script and run
// it, and answers only when it is done. A promise carries the question to the thread and the answer
// back; it is Qt's, so that either side may be gone when the other comes to it.

namespace {
/// As many questions may wait for their answers at once; the others wait for a thread.
constexpr int mostThreads = 2;

/// Never destroyed: its destruction would wait for resolvers, and the end of the program with it.
QThreadPool& threads() {
  static QThreadPool* const pool = [] {
    auto* const made = new QThreadPool;
    made->setMaxThreadCount(mostThreads);
    return made;
  }();
  return *pool;
}

class ProxyQuestion {
 public:
  ProxyQuestion(Executor& executor, const ProxyResolver& resolver, const QUrl& url, Instant end,
                const Completion<ProxyResult>& completion)
      : executor_(executor) {
    const auto promise = std::make_shared<QPromise<Proxies>>();
    promise->start();
    QObject::connect(&answer_, &QFutureWatcher<Proxies>::finished, &answer_,
                     [this, completion] { completion.resolve(answer_.result()); });
    answer_.setFuture(promise->future());
    timer_ = executor.schedule(
        end, [completion] { completion.resolve(std::unexpected(HttpFailure::timedOut)); });
    threads().start([promise, resolver, url] {
      if (promise->isCanceled()) { return; }
      promise->addResult(resolver(url));
      promise->finish();
    });
  }
  ProxyQuestion(const ProxyQuestion&) = delete;
  ProxyQuestion& operator=(const ProxyQuestion&) = delete;
  ~ProxyQuestion() {
    executor_.cancel(timer_);
    answer_.disconnect();
    answer_.cancel();
  }

 private:
  Executor& executor_;
  Executor::TimerId timer_ = 0;
  QFutureWatcher<Proxies> answer_;
};
}  // namespace

Proxies systemProxies(const QUrl& url) {
  return QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(url));
}

Task<ProxyResult> findProxies(ProxyResolver resolver, QUrl url, Instant end) {
  const TaskContext context = co_await currentContext();
  Executor* const executor = context.executor;
  CompletionAwaiter<ProxyResult>::Start start = [&](const Completion<ProxyResult>& completion) {
    auto asked = std::make_shared<ProxyQuestion>(*executor, resolver, url, end, completion);
    return [asked = std::move(asked)] {};  // dropping it is the end of the waiting
  };
  ProxyResult whenCancelled = std::unexpected(HttpFailure::cancelled);
  co_return co_await untilResolved<ProxyResult>(std::move(start), std::move(whenCancelled));
}

bool isResolverAtWork() { return threads().activeThreadCount() > 0; }
}  // namespace orvane
