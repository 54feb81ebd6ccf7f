// What it costs to draw twenty years of the daily history. A frame is 16.7 ms; the pointer moving
// along the days draws one after the other.

#include <QImage>
#include <QPainter>
#include <vector>
#include <benchmark/benchmark.h>
#include "documents.h"
#include "shell/views/history_picture.h"

namespace orvane::bench { namespace {

std::vector<BraiinsHistoryDay> twentyYears() {
  return buildHistoryDays(rewardsDocument(daysOfTwentyYears),
                          dailyHashrateDocument(daysOfTwentyYears))
      .value();
}

void prepare(benchmark::State& state) {
  const auto days = twentyYears();
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(historySeries(days, HistorySpan::all));
  }
}

/// `scale`: pixels of the device in a logical one.
void paint(benchmark::State& state, HistorySpan span, int scale) {
  const LocaleFormat format({.numbers = "en_US", .dates = "en_US"});
  const auto series = historySeries(twentyYears(), span);
  const QRect area(0, 0, 1600, 900);  // the window fills a large screen
  QImage image(area.size() * scale, QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(scale);
  for ([[maybe_unused]] auto _ : state) {
    image.fill(Qt::white);
    QPainter painter(&image);
    HistoryPicture(series, format, area).paint(painter, QPalette(), series.days.size() / 2);
  }
}

BENCHMARK(prepare)->Name("prepare/twenty_years")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(paint, year, HistorySpan::year, 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(paint, twenty_years, HistorySpan::all, 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(paint, twenty_years_at_2x, HistorySpan::all, 2)->Unit(benchmark::kMillisecond);

}}  // namespace orvane::bench
