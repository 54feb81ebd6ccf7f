#include "support/scripted_transport.h"

#include <algorithm>
#include <utility>

namespace orvane::test {

using Script = ScriptedTransport::Script;

Script& Script::respond(int status, std::string body) {
  HttpResponse response{.status = status, .body = std::move(body)};
  return respondBy([response = std::move(response)](const HttpRequest&) { return response; });
}

Script& Script::fail(HttpFailure failure) {
  return respondBy([failure](const HttpRequest&) { return std::unexpected(failure); });
}

Script& Script::respondBy(Answer answer) {
  steps_.push_back({.answer = std::move(answer)});
  return *this;
}

Script& Script::neverAnswer() {
  steps_.push_back({.answer = nullptr, .due = Due::never});
  return *this;
}

Script& Script::stall() {
  fail(HttpFailure::timedOut);
  steps_.back().due = Due::afterIdleTimeout;
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

bool Script::matches(std::string_view url) const {
  return atEnd_ ? url.ends_with(urlPart_) : url.contains(urlPart_);
}

std::optional<Script::Step> Script::next() {
  while (!steps_.empty()) {
    Step& step = steps_.front();
    if (!step.times && steps_.size() == 1) { return step; }
    std::size_t& left = step.times.emplace(step.times.value_or(1));
    if (left > 0) {
      --left;
      return step;
    }
    steps_.pop_front();
  }
  return std::nullopt;
}

Script& ScriptedTransport::on(std::string urlPart) {
  scripts_.push_front(Script(std::move(urlPart), false));
  return scripts_.front();
}

Script& ScriptedTransport::onEnding(std::string ending) {
  scripts_.push_front(Script(std::move(ending), true));
  return scripts_.front();
}

std::size_t ScriptedTransport::sentTo(std::string_view urlPart) const {
  return static_cast<std::size_t>(std::ranges::count_if(
      sent_, [&](const Sent& sent) { return sent.request.url.contains(urlPart); }));
}

std::size_t ScriptedTransport::count(Outcome outcome) const {
  return static_cast<std::size_t>(std::ranges::count(sent_, outcome, &Sent::outcome));
}

Script::Step ScriptedTransport::nextStep(const std::string& url) {
  for (Script& script : scripts_) {
    if (!script.matches(url)) { continue; }
    if (std::optional<Script::Step> step = script.next()) { return std::move(*step); }
  }
  return {.answer = [](const HttpRequest&) { return HttpResponse{.status = 404, .body = {}}; }};
}

HttpResult ScriptedTransport::conclude(std::size_t index, const Answer& answer) {
  HttpResult result = answer(sent_[index].request);
  sent_[index].outcome = result ? Outcome::answered : Outcome::failed;
  return result;
}

ScriptedTransport::Abort ScriptedTransport::begin(HttpRequest request,
                                                  const Completion<HttpResult>& completion) {
  const std::size_t index = sent_.size();
  const Script::Step step = nextStep(request.url);
  const auto delay = step.due == Script::Due::afterIdleTimeout ? request.idleTimeout : step.delay;
  sent_.push_back({.request = std::move(request), .at = executor_.now()});
  const auto resolve = [this, index, completion, answer = step.answer] {
    completion.resolve(conclude(index, answer));
  };
  std::optional<Executor::TimerId> timer;
  if (step.due != Script::Due::never && delay > ExecutorClock::duration::zero()) {
    timer = executor_.schedule(executor_.now() + delay, resolve);
  } else if (step.due != Script::Due::never) {
    resolve();
  }
  return [this, index, timer] {
    sent_[index].outcome = Outcome::aborted;
    if (timer) { executor_.cancel(*timer); }
  };
}

Task<HttpResult> ScriptedTransport::get(HttpRequest request) {
  CompletionAwaiter<HttpResult>::Start start =
      [this, request = std::move(request)](const Completion<HttpResult>& completion) {
        return begin(request, completion);
      };
  HttpResult whenCancelled = std::unexpected(HttpFailure::cancelled);
  HttpResult result =
      co_await untilResolved<HttpResult>(std::move(start), std::move(whenCancelled));
  co_return result;
}

}  // namespace orvane::test
