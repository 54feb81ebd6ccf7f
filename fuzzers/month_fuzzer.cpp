// A month of the program under a virtual clock, with services that fail in every way, a keyring
// that is locked, gone and back, a machine that sleeps, a clock that is set, and a user who changes
// everything at any moment. The input decides what happens for as long as it lasts, and seeds what
// happens afterwards. What must hold all the time is listed in `check`.

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <random>
#include <fmt/format.h>
#include "fuzzer.h"
#include "platform/text/unicode.h"
#include "support/store_on_fakes.h"

namespace orvane {
namespace {
using namespace std::chrono_literals;

/// Choices, by the input first and by chance when it is used up.
class Choices {
 public:
  explicit Choices(std::string_view input)
      : input_(input), chance_(std::hash<std::string_view>()(input)) {}

  /// From 0 to below `count`.
  unsigned oneOf(unsigned count) {
    if (input_.empty()) { return static_cast<unsigned>(chance_() % count); }
    const auto byte = static_cast<unsigned char>(input_.front());
    input_.remove_prefix(1);
    return byte % count;
  }

 private:
  std::string_view input_;
  std::mt19937_64 chance_;
};

enum class Mood { well, refusing, failing, garbling, dropping, unreachable, silent };

/// A web service, as it behaves for now.
struct Service {
  const char* url;
  Mood mood = Mood::well;
  ExecutorClock::duration since{};  ///< of the time that the machine was awake
};

/// What the notifications must be, told by the summaries that the store has accepted alone.
class ExpectedNotifications {
 public:
  void watch(const std::string& address) {
    if (address != address_) { seen_.reset(); }
    address_ = address;
  }
  void accept(const WatchedAddressSummary& summary) {
    const bool isFirst = !seen_;
    if (isFirst) { seen_.emplace(); }
    for (const WatchedAddressTransaction& transaction : summary.incoming) {
      const bool isNew = seen_->insert(transaction.txid).second;
      if (isNew && !isFirst) { identifiers.push_back("address-" + transaction.txid); }
    }
  }

  std::vector<std::string> identifiers;

 private:
  std::string address_;
  std::optional<std::set<std::string>> seen_;
};

class Month {
 public:
  explicit Month(std::string_view input) : choices_(input) {
    for (Service* const service : {&pool_, &explorer_, &prices_}) {
      obey(*service);
    }
    world_.storeToken("first");
    start();
  }

  void pass() {
    while (world_.executor.now() < Instant(30 * 24h)) {
      const BalanceState before = world_.state();
      const bool isTouched = act();
      letTimePass();
      check(before, isTouched);
    }
    world_.store.reset();
    world_.executor.runUntilIdle();
    require(world_.transport.inFlight() == 0 && world_.executor.pendingTimers() == 0);
  }

 private:
  // What happens.

  /// True when figures may have to go: another token, another address, a new start.
  bool act() {
    switch (choices_.oneOf(14)) {
      case 0:
        setMood(pool_);
        return false;
      case 1:
        setMood(explorer_);
        return false;
      case 2:
        setMood(prices_);
        return false;
      case 3:
        calmDown();
        return false;
      case 4:
        setKeyring();
        return false;
      case 5:
        payments_ += 1 + choices_.oneOf(3);
        return false;
      case 6:
        world_.executor.suspend(minutes(choices_.oneOf(600)));
        return false;
      case 7:
        setClock();
        return false;
      case 8:
        world_.store->restartPolling();
        return false;
      case 9:
        world_.store->restartAddressWatch();
        return false;
      case 10:
        world_.store->loadHistory();
        return false;
      case 11:
        enterToken();
        return true;
      case 12:
        enterAddress();
        return true;
      default:
        start();
        return true;
    }
  }

  static ExecutorClock::duration minutes(unsigned count) { return std::chrono::minutes(count); }

  void letTimePass() {
    const ExecutorClock::duration spans[]{0s, 1ms, 1s, 7s, 59s, 61s, 6min, 40min, 3h};
    world_.executor.runUntilIdle();
    const ExecutorClock::duration span = spans[choices_.oneOf(std::size(spans))];
    world_.executor.advance(span);
    awake_ += span;
    world_.executor.runUntilIdle();
  }

  void setMood(Service& service) {
    service.mood = static_cast<Mood>(choices_.oneOf(7));
    obey(service);
  }

  void calmDown() {
    for (Service* const service : {&pool_, &explorer_, &prices_}) {
      service->mood = Mood::well;
      obey(*service);
    }
    world_.keychain.arrive();
  }

  void setKeyring() {
    using Condition = test::MemoryKeychain::Condition;
    if (world_.keychain.isPrompting()) { world_.keychain.answerPrompt(choices_.oneOf(2) == 0); }
    const Condition condition = static_cast<Condition>(choices_.oneOf(3));
    if (condition == Condition::working) {
      world_.keychain.arrive();
    } else {
      world_.keychain.condition = condition;
    }
    world_.keychain.delay = minutes(choices_.oneOf(2));
    if (choices_.oneOf(4) == 0) { world_.storePayoutAddress(test::secondAddress); }
  }

  void setClock() {
    const auto jump = std::chrono::hours(choices_.oneOf(200)) - 100h + 1ms;
    world_.executor.setWallClock(world_.executor.wallClock() + jump);
  }

  void enterToken() {
    const char* const tokens[]{"first", "second", ""};
    world_.store->setToken(tokens[choices_.oneOf(3)]);
    profileText_.reset();
  }

  void enterAddress() {
    const char* const addresses[]{test::firstAddress, test::secondAddress, "", "no address"};
    (void)world_.store->setOwnAddress(addresses[choices_.oneOf(4)]);
  }

  void start() {
    world_.start();
    lastUpdate_.reset();
    lastPoolRequest_.reset();
    profileText_.reset();
    watched_.clear();
    world_.transport.clearSent();
    observer_ = world_.store->observe([this] { noticeAddress(); });
    noticeAddress();
  }

  void noticeAddress() {
    const BalanceState& state = world_.state();
    if (std::exchange(watched_, state.watchedAddress) != state.watchedAddress) {
      expected_.watch(watched_);
    }
    // Two may come within the same moment of the clock.
    const bool isSame =
        state.addressLastUpdate == lastUpdate_ && state.addressSummary == lastSummary_;
    if (!state.addressSummary || isSame) { return; }
    lastUpdate_ = state.addressLastUpdate;
    lastSummary_ = state.addressSummary;
    expected_.accept(*state.addressSummary);
  }

  // What the services say.

  void obey(Service& service) {
    service.since = awake_;
    world_.transport.on(service.url)
        .respondBy(
            [this, &service](const HttpRequest& request) { return answer(service, request); })
        .after(service.mood == Mood::silent ? 15s : std::chrono::seconds(choices_.oneOf(9)));
  }

  HttpResult answer(const Service& service, const HttpRequest& request) {
    const bool isProfile = request.url.contains("/profile/");
    if (isProfile) { profileText_ = statusTextFor(service.mood); }
    switch (service.mood) {
      case Mood::well:
        return HttpResponse{.status = 200, .body = document(request.url)};
      case Mood::refusing:
        return HttpResponse{.status = 401, .body = ""};
      case Mood::failing:
        return HttpResponse{.status = 503, .body = "busy"};
      case Mood::garbling:
        return HttpResponse{.status = 200, .body = "{\"btc\":[{"};
      case Mood::dropping:
        return std::unexpected(HttpFailure::networkConnectionLost);
      case Mood::unreachable:
        return std::unexpected(HttpFailure::cannotFindHost);
      case Mood::silent:
        return std::unexpected(HttpFailure::timedOut);
    }
    std::abort();
  }

  static std::string statusTextFor(Mood mood) {
    switch (mood) {
      case Mood::well:
        return "";
      case Mood::refusing:
        return "Braiins did not accept the API token. Check it in Settings below.";
      case Mood::failing:
      case Mood::garbling:
        return "The Braiins account could not be loaded. The next try is in 5 minutes.";
      default:
        return "Braiins could not be reached. The last figures stay until the next try.";
    }
  }

  std::string document(std::string_view url) {
    if (url.contains("/profile/")) {
      return fmt::format(R"({{"btc":{{"hash_rate_unit":"Gh/s","hash_rate_60m":5,"shares_24h":1024,)"
                         R"("today_reward":"0","current_balance":"{}e-8"}}}})",
                         ++balance_);
    }
    if (url.contains("/workers/")) { return R"({"btc":{"workers":{"a":{"state":"ok"}}}})"; }
    if (url.contains("/rewards/")) {
      return R"({"btc":{"daily_rewards":[{"date":1794700800,"total_reward":"0.1"}]}})";
    }
    if (url.contains("/hash_rate_daily/")) { return R"({"btc":[]})"; }
    if (url.ends_with("/txs")) { return payments(url.substr(0, url.size() - 4)); }
    if (url.contains("/blocks/tip/height")) { return "850000"; }
    if (url.contains("explorer")) {
      return R"({"chain_stats":{"funded_txo_sum":5,"spent_txo_sum":0},)"
             R"("mempool_stats":{"funded_txo_sum":0,"spent_txo_sum":0}})";
    }
    return R"({"bitcoin":{"eur":1,"usd":1}})";
  }

  /// The newest fifty of all payments so far.
  std::string payments(std::string_view addressUrl) const {
    const std::string_view address = addressUrl.substr(addressUrl.rfind('/') + 1);
    std::string list;
    for (unsigned number = payments_; number > 0 && payments_ - number < 50; --number) {
      list += fmt::format(R"({}{{"txid":"{}-{}","vin":[],"vout":[{{"scriptpubkey_address":"{}",)"
                          R"("value":1}}],"status":{{"confirmed":false}}}})",
                          list.empty() ? "" : ",", address.substr(0, 4), number, address);
    }
    return "[" + list + "]";
  }

  // What must hold.

  void check(const BalanceState& before, bool isTouched) {
    const BalanceState& now = world_.state();
    checkPace();
    require(received() == expected_.identifiers);
    if (!isTouched && now.token == before.token) { require(!before.stats || now.stats); }
    if (!isTouched && before.addressIsFromMiner) { require(!now.watchedAddress.empty()); }
    if (!isTouched && now.watchedAddress == before.watchedAddress) {
      require(!before.addressSummary || now.addressSummary);
    }
    const bool isQuiet = world_.transport.inFlight() == 0;
    if (isQuiet && profileText_) { require(now.accountStatus.value_or("") == *profileText_); }
    if (isTouched || now.token != before.token || now.watchedAddress != before.watchedAddress) {
      lastTouch_ = awake_;
    }
    checkProgress(now);
  }

  std::vector<std::string> received() const {
    std::vector<std::string> identifiers;
    for (const NotificationRequest& request : world_.notifications.received()) {
      identifiers.push_back(request.identifier);
    }
    return identifiers;
  }

  void checkPace() {
    for (const test::ScriptedTransport::Sent& sent : world_.transport.sent()) {
      if (!sent.request.url.starts_with(pool_.url)) { continue; }
      require(sent.request.headers.at(0).value == "first" ||
              sent.request.headers.at(0).value == "second");
      require(!lastPoolRequest_ ||
              sent.at - *lastPoolRequest_ >= BraiinsAccountClient::poolRequestGap);
      lastPoolRequest_ = sent.at;
    }
    world_.transport.clearSent();
  }

  /// Services that have been well for long are read, whatever was before.
  void checkProgress(const BalanceState& now) {
    constexpr auto longEnough = 25min;
    const auto wellFor = [&](const Service& service) {
      return service.mood == Mood::well ? awake_ - service.since : 0s;
    };
    if (wellFor(pool_) > longEnough && awake_ - lastTouch_ > longEnough) {
      require(now.token.empty() || (now.stats && !now.accountStatus));
    }
    if (wellFor(explorer_) > longEnough && awake_ - lastTouch_ > longEnough) {
      require(now.watchedAddress.empty() || (now.addressSummary && !now.addressStatus));
    }
  }

  Choices choices_;
  test::StoreOnFakes world_;
  Service pool_{.url = "https://pool.test/"};
  Service explorer_{.url = "https://explorer.test/"};
  Service prices_{.url = "https://price.test/"};
  unsigned payments_ = 0;
  unsigned balance_ = 0;
  std::optional<std::string> profileText_;  ///< what the last answer about the account makes of it
  ExpectedNotifications expected_;
  std::string watched_;
  std::optional<WallTime> lastUpdate_;
  std::optional<WatchedAddressSummary> lastSummary_;
  std::optional<Instant> lastPoolRequest_;
  ExecutorClock::duration awake_{};
  ExecutorClock::duration lastTouch_{};
  Registration observer_;
};
}  // namespace

void tryInput(std::string_view input) { Month(input).pass(); }
}  // namespace orvane
