#pragma once

#include <deque>
#include "platform/async/completion.h"
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
    Script& fail(HttpFailure failure) {
      return respondBy([failure](const HttpRequest&) { return std::unexpected(failure); });
    }
    /// Answers with what `answer` makes of the request when the answer is due.
    Script& respondBy(Answer answer);
    /// The request stays under way until it is cancelled.
    Script& neverAnswer() { return respondBy(nullptr); }
    /// Nothing arrives: the request fails with `timedOut` after its own idle time-out.
    Script& stall();

    /// How long the answer takes; not at all unless said.
    Script& after(ExecutorClock::duration delay);
    Script& times(std::size_t count);

   private:
    friend class ScriptedTransport;
    struct Step {
      Answer answer;  ///< none: never
      std::optional<ExecutorClock::duration> delay = ExecutorClock::duration::zero();
      std::optional<std::size_t> times = {};
    };

    Script(std::string urlPart, bool atEnd) : urlPart_(std::move(urlPart)), atEnd_(atEnd) {}
    /// Uses up one answer; nothing when all are, or for another URL.
    std::optional<Step> next(std::string_view url);

    std::string urlPart_;
    bool atEnd_;
    std::deque<Step> steps_;
  };

  struct Sent {
    HttpRequest request;
    Instant at;  ///< by the executor's clock
  };

  explicit ScriptedTransport(Executor& executor) : executor_(executor) {}

  /// Starts a script for the URLs that contain `urlPart`; the empty text means all.
  Script& on(std::string urlPart) { return add(Script(std::move(urlPart), false)); }
  /// Starts a script for the URLs that end with `ending`: "/address/a" but not "/address/a/txs".
  Script& onEnding(std::string ending) { return add(Script(std::move(ending), true)); }

  /// Every request, in the order of sending. A request whose task was cancelled before it could
  /// be sent is not among them.
  [[nodiscard]] const std::vector<Sent>& sent() const { return sent_; }
  [[nodiscard]] std::size_t sentTo(std::string_view urlPart) const;
  [[nodiscard]] std::size_t inFlight() const { return inFlight_; }
  /// Requests that ended because their task was cancelled or destroyed.
  [[nodiscard]] std::size_t aborted() const { return aborted_; }
  /// Forgets the requests so far, for a test of several acts.
  void clearSent() { sent_.clear(); }

  [[nodiscard]] Task<HttpResult> get(HttpRequest request) override;

 private:
  Script& add(Script script) { return scripts_.emplace_front(std::move(script)); }
  Script::Step nextStep(const std::string& url);

  Executor& executor_;
  std::deque<Script> scripts_;
  std::vector<Sent> sent_;
  std::size_t inFlight_ = 0;
  std::size_t aborted_ = 0;
};
}  // namespace orvane::test
