#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/async/completion.h"
#include "platform/async/executor.h"
#include "platform/http/http_transport.h"

namespace orvane::test {

/// A transport that answers from a script and remembers what it was asked. Time is the executor's,
/// so an answer that takes five seconds takes none.
///
///     ScriptedTransport transport{executor};
///     transport.on("/profile").respond(200, profileText);
///     transport.on("/workers").respond(503).times(2).respond(200, workersText).after(5s);
///     transport.on("/rewards").fail(HttpFailure::timedOut).times(1);
///     ...
///     EXPECT_EQ(transport.sent().size(), 3U);
///     EXPECT_EQ(transport.sent()[1].request.headers[0].value, "secret");
///
/// The newest script that matches a URL and still has an answer serves the request, so a test can
/// override what its fixture has set up. A URL that no script serves is answered with 404.
class ScriptedTransport final : public HttpTransport {
 public:
  using Answer = std::function<HttpResult(const HttpRequest&)>;

  /// What the requests to some URLs are answered with: one answer after the other in the order of
  /// the calls. Each serves one request, the last one all that follow, unless `times` says
  /// otherwise. `after` and `times` speak of the answer named before them.
  class Script {
   public:
    Script& respond(int status, std::string body = {});
    Script& fail(HttpFailure failure);
    /// Answers with what `answer` makes of the request when the answer is due.
    Script& respondBy(Answer answer);
    /// The request stays under way until it is cancelled.
    Script& neverAnswer();
    /// Nothing arrives: the request fails with `timedOut` after its own idle time-out.
    Script& stall();

    /// How long the answer takes; not at all unless said.
    Script& after(ExecutorClock::duration delay);
    Script& times(std::size_t count);

   private:
    friend class ScriptedTransport;
    enum class Due { afterDelay, afterIdleTimeout, never };
    struct Step {
      Answer answer;
      Due due = Due::afterDelay;
      ExecutorClock::duration delay{};
      std::optional<std::size_t> times = {};
    };

    Script(std::string urlPart, bool atEnd) : urlPart_(std::move(urlPart)), atEnd_(atEnd) {}
    [[nodiscard]] bool matches(std::string_view url) const;
    /// Uses up one answer; nothing when all are.
    std::optional<Step> next();

    std::string urlPart_;
    bool atEnd_;
    std::deque<Step> steps_;
  };

  enum class Outcome { underWay, answered, failed, aborted };

  struct Sent {
    HttpRequest request;
    Instant at;  ///< by the executor's clock
    Outcome outcome = Outcome::underWay;
  };

  explicit ScriptedTransport(Executor& executor) : executor_(executor) {}

  /// Starts a script for the URLs that contain `urlPart`; the empty text means all.
  Script& on(std::string urlPart);
  /// Starts a script for the URLs that end with `ending`: "/address/a" but not "/address/a/txs".
  Script& onEnding(std::string ending);

  /// Every request, in the order of sending. A request whose task was cancelled before it could
  /// be sent is not among them.
  [[nodiscard]] const std::vector<Sent>& sent() const { return sent_; }
  [[nodiscard]] std::size_t sentTo(std::string_view urlPart) const;
  [[nodiscard]] std::size_t inFlight() const { return count(Outcome::underWay); }
  /// Requests that ended because their task was cancelled or destroyed.
  [[nodiscard]] std::size_t aborted() const { return count(Outcome::aborted); }
  /// Forgets the requests so far, for a test of several acts. None may be under way.
  void clearSent() { sent_.clear(); }

  [[nodiscard]] Task<HttpResult> get(HttpRequest request) override;

 private:
  using Abort = CompletionAwaiter<HttpResult>::Abort;

  Abort begin(HttpRequest request, const Completion<HttpResult>& completion);
  Script::Step nextStep(const std::string& url);
  HttpResult conclude(std::size_t index, const Answer& answer);
  [[nodiscard]] std::size_t count(Outcome outcome) const;

  Executor& executor_;
  std::deque<Script> scripts_;
  std::vector<Sent> sent_;
};

}  // namespace orvane::test
