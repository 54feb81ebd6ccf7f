// What new figures cost on screen: from the store's announcement to the repainted window, beside a
// repaint of the same window without new figures. A frame is 16.7 ms.

#include <QApplication>
#include <array>
#include <benchmark/benchmark.h>
#include "documents.h"
#include "shell/sample_states.h"
#include "shell/views/balance_view.h"

namespace orvane::bench { namespace {

using test::StoreOnFakes;

BalanceState largeAccount(double rate) {
  BalanceState figures = test::everything();
  figures.workers = test::manyWorkers(static_cast<int>(workerTotal));
  for (BraiinsWorkerStatus& worker : figures.workers) {
    worker.hashRate5m *= rate;
  }
  figures.stats->hashRate60m *= rate;
  const BraiinsHistoryDay newest = figures.history.front();
  figures.history.assign(daysOfTwentyYears, newest);
  for (std::size_t day = 0; day < daysOfTwentyYears; ++day) {
    figures.history[day].date -= std::chrono::days(day);
  }
  return figures;
}

/// Notices that something is painted.
class PaintWatch final : public QObject {
 public:
  PaintWatch() { qApp->installEventFilter(this); }

  /// Lets the window update and paint until it rests; false when it had nothing to paint.
  bool letPaint() {
    bool hasPainted = false;
    do {
      isPainted_ = false;
      QCoreApplication::processEvents();
      hasPainted |= isPainted_;
    } while (isPainted_);
    return hasPainted;
  }

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) { isPainted_ = true; }
    return false;
  }

 private:
  bool isPainted_ = false;
};

/// The main window's content on screen, large, with figures that change.
class Window {
 public:
  explicit Window(HistoryView historyView) {
    figures_[0].historyView = historyView;
    fakes_.startShowing(figures_[0]);
    view_.emplace(*fakes_.store, fakes_.format, BalanceViewSettings{.poolWebHost = "pool.test"},
                  [] {});
    view_->resize(1600, 1100);
    view_->show();
    paints_.letPaint();
  }

  /// The store has new figures and has announced them; nothing of them is shown yet.
  void announce() {
    fakes_.transport.clearSent();
    fakes_.bring(figures_[turn_++ % figures_.size()]);
  }
  /// The time of this is what counts.
  void showIn(benchmark::State& state) {
    if (!paints_.letPaint()) { state.SkipWithError("nothing was painted"); }
  }
  QWidget& widget() { return *view_; }

 private:
  PaintWatch paints_;
  StoreOnFakes fakes_;
  std::array<BalanceState, 2> figures_{largeAccount(1), largeAccount(1.01)};
  std::size_t turn_ = 1;
  std::optional<BalanceView> view_;
};

void update(benchmark::State& state, HistoryView historyView) {
  Window window(historyView);
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    window.announce();
    state.ResumeTiming();
    window.showIn(state);
  }
}

void repaint(benchmark::State& state, HistoryView historyView) {
  Window window(historyView);
  for ([[maybe_unused]] auto _ : state) {
    window.widget().update();
    window.showIn(state);
  }
}

constexpr int rounds = 5;  // bringing the store to new figures takes far longer than showing them

BENCHMARK_CAPTURE(update, table, HistoryView::table)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(rounds);
BENCHMARK_CAPTURE(repaint, table, HistoryView::table)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(update, chart, HistoryView::chart)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(rounds);
BENCHMARK_CAPTURE(repaint, chart, HistoryView::chart)->Unit(benchmark::kMillisecond);

}}  // namespace orvane::bench

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
