#include "support/scripted_transport.h"
#include <algorithm>

namespace orvane::test {
using Script = ScriptedTransport::Script;

Script& Script::respond(int status, std::string body) {
  HttpResponse response{.status = status, .body = std::move(body)};
  return respondBy([response = std::move(response)](const HttpRequest&) { return response; });
}

Script& Script::respondBy(Answer answer) {
  steps_.push_back({.answer = std::move(answer)});
  return *this;
}

Script& Script::stall() {
  fail(HttpFailure::timedOut).steps_.back().delay.reset();
  return *this;
}

Script& Script::after(ExecutorClock::duration delay) {
  steps_.back().delay = delay;
  return *this;
}

Script& Script::times(std::size_t count) {
  steps_.back().times = count;
  return *this;
}

std::optional<Script::Step> Script::next(std::string_view url) {
  if (!(atEnd_ ? url.ends_with(urlPart_) : url.contains(urlPart_))) { return std::nullopt; }
  for (; !steps_.empty(); steps_.pop_front()) {
    Step& step = steps_.front();
    if (!step.times && steps_.size() == 1) { return step; }
    std::size_t& left = step.times.emplace(step.times.value_or(1));
    if (left > 0) {
      --left;
      return step;
    }
  }
  return std::nullopt;
}

std::size_t ScriptedTransport::sentTo(std::string_view urlPart) const {
  return static_cast<std::size_t>(std::ranges::count_if(
      sent_, [&](const Sent& sent) { return sent.request.url.contains(urlPart); }));
}

Script::Step ScriptedTransport::nextStep(const std::string& url) {
  for (Script& script : scripts_) {
    if (auto step = script.next(url)) { return *std::move(step); }
  }
  return {.answer = [](const HttpRequest&) { return HttpResponse{.status = 404, .body = {}}; }};
}

Task<HttpResult> ScriptedTransport::get(HttpRequest request) {
  CompletionAwaiter<HttpResult>::Start start =
      [this, request = std::move(request)](const Completion<HttpResult>& completion) {
        sent_.push_back({.request = request, .at = executor_.now()});
        ++inFlight_;
        const Script::Step step = nextStep(request.url);
        const auto delay = step.delay.value_or(request.idleTimeout);
        const auto answer = [this, completion, request, answer = step.answer] {
          completion.resolve(answer(request));
          --inFlight_;
        };
        Executor::TimerId timer = 0;
        if (step.answer && delay > ExecutorClock::duration::zero()) {
          timer = executor_.schedule(executor_.now() + delay, answer);
        } else if (step.answer) {
          answer();
        }
        return [this, timer] {
          --inFlight_;
          ++aborted_;
          executor_.cancel(timer);
        };
      };
  HttpResult whenCancelled = std::unexpected(HttpFailure::cancelled);
  HttpResult result =
      co_await untilResolved<HttpResult>(std::move(start), std::move(whenCancelled));
  co_return result;
}
}  // namespace orvane::test
