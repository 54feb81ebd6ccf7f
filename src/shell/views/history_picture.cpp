#include "shell/views/history_picture.h"
#include <QFontMetrics>
#include <QImage>
#include <algorithm>
#include <cmath>
#include <vector>
#include "platform/color/contrast.h"
#include "shell/views/colors.h"
#include "shell/views/qt_text.h"
#include "shell/views/theme.h"

namespace orvane {
namespace {
constexpr double barShare = 0.8;    ///< of a day's width; the rest is space
constexpr double narrowestBar = 4;  ///< of a day with space around its bar
constexpr double lineWidth = 1.6;
constexpr double pointRadius = 3.5;
constexpr int swatch = 10;
constexpr double cursorOpacity = 0.18;
constexpr double darkBarShare = 0.6;  ///< of colour in it; the rest is ground
constexpr int gridSteps = 2;          ///< from the ground to the ends of the axes
constexpr double wordsPerTick = 1.6;

/// In the dark the line, which is nearly white, would be lost on bars of the full colour.
QColor barColor(const QPalette& palette) {
  const auto color = theme::markColor(theme::MarkColor::green, palette);
  return isDark(palette) ? between(palette.color(QPalette::Window), color, darkBarShare) : color;
}
QColor lineColor(const QPalette& palette) {
  return theme::textColor(theme::TextColor::primary, palette);
}
}  // namespace

HistoryPicture::HistoryPicture(const HistorySeries& series, const LocaleFormat& format,
                               const QRect& area)
    : series_(series),
      format_(format),
      area_(area),
      font_(theme::textFont(theme::TextStyle::caption)) {
  const QFontMetrics metrics(font_);
  const int left = metrics.horizontalAdvance(toQString(axisSatsText(format_, series_.topSats)));
  const int right = metrics.horizontalAdvance(toQString(axisHashRateText(series_.topHashRate)));
  const int line = metrics.height();
  // The words at the ends of the axes reach into the space beneath the legend.
  plot_ = QRectF(area_).adjusted(left + 2.0 * gap, 1.5 * line + gap, -right - 2.0 * gap,
                                 -2.0 * line - gap);
  plot_ = plot_.toAlignedRect();
  dayWidth_ = std::max(plot_.width(), 1.0) / dayTotal();
}

double HistoryPicture::dayTotal() const {
  return static_cast<double>(series_.lastDay - series_.firstDay + 1);
}

double HistoryPicture::x(std::int64_t day) const {
  return plot_.left() + static_cast<double>(day - series_.firstDay) * dayWidth_;
}
double HistoryPicture::lineTop(double hashRate) const {
  return plot_.bottom() - plot_.height() * std::clamp(hashRate / series_.topHashRate, 0.0, 1.0);
}

std::size_t HistoryPicture::rowNearest(double position) const {
  const auto& days = series_.days;
  const auto day = series_.firstDay +
                   static_cast<std::int64_t>(std::floor((position - plot_.left()) / dayWidth_));
  const auto after = std::ranges::lower_bound(days, day, {}, &ChartDay::day);
  if (after == days.begin()) { return 0; }
  const auto before = std::prev(after);
  const bool isAfterNearer = after != days.end() && after->day - day < day - before->day;
  return static_cast<std::size_t>((isAfterNearer ? after : before) - days.begin());
}

QRectF HistoryPicture::place(std::size_t row) const {
  return {x(series_.days.at(row).day), plot_.top(), std::max(dayWidth_, 1.0), plot_.height()};
}

void HistoryPicture::paint(QPainter& painter, const QPalette& palette,
                           std::optional<std::size_t> cursor) const {
  if (plot_.width() < 1 || plot_.height() < 1) { return; }
  painter.setFont(font_);
  // Time runs to the right everywhere, and each axis keeps its side; words have their own
  // direction.
  painter.setLayoutDirection(Qt::LayoutDirectionAuto);
  if (cursor) {
    const auto color = theme::textColor(theme::TextColor::primary, palette);
    painter.fillRect(place(*cursor), theme::withOpacity(color, cursorOpacity));
  }
  paintLegend(painter, palette);
  paintValueAxes(painter, palette);
  paintDateAxis(painter, palette);
  paintBars(painter, palette);
  paintLine(painter, palette);
  if (!cursor || !series_.days[*cursor].hashRate) { return; }
  painter.setBrush(lineColor(palette));
  const QPointF point(place(*cursor).center().x(), lineTop(*series_.days[*cursor].hashRate));
  painter.drawEllipse(point, pointRadius, pointRadius);
}

void HistoryPicture::paintLegend(QPainter& painter, const QPalette& palette) const {
  const auto words = QFontMetrics(font_).height();
  const QRectF line(area_.left() + gap, area_.top() + gap / 2.0, area_.width() - 2 * gap, words);
  const QRectF mark(line.left(), line.center().y() - swatch / 2.0, swatch, swatch);
  painter.fillRect(mark, barColor(palette));
  const QPointF end(line.right(), line.center().y());
  painter.setPen(QPen(lineColor(palette), lineWidth));
  painter.drawLine(end - QPointF(swatch, 0), end);
  painter.setPen(theme::textColor(theme::TextColor::secondary, palette));
  const auto texts = line.adjusted(swatch + gap, 0, -swatch - gap, 0);
  painter.drawText(texts, Qt::AlignLeft | Qt::AlignVCenter, QObject::tr("Reward"));
  painter.drawText(texts, Qt::AlignRight | Qt::AlignVCenter, QObject::tr("Average hashrate"));
}

void HistoryPicture::paintValueAxes(QPainter& painter, const QPalette& palette) const {
  const auto words = QFontMetrics(font_).height();
  for (int step = 0; step <= gridSteps; ++step) {
    const double share = static_cast<double>(step) / gridSteps;
    const double y = std::round(plot_.bottom() - plot_.height() * share);
    painter.fillRect(QRectF(plot_.left(), y, plot_.width(), 1), theme::outlineColor(palette));
    painter.setPen(theme::textColor(theme::TextColor::secondary, palette));
    const double top = y - words / 2.0;
    painter.drawText(QRectF(area_.left(), top, plot_.left() - gap - area_.left(), words),
                     Qt::AlignRight | Qt::AlignVCenter,
                     toQString(axisSatsText(format_, series_.topSats * share)));
    painter.drawText(QRectF(plot_.right() + gap, top, area_.right() - plot_.right() - gap, words),
                     Qt::AlignLeft | Qt::AlignVCenter,
                     toQString(axisHashRateText(series_.topHashRate * share)));
  }
}

void HistoryPicture::paintDateAxis(QPainter& painter, const QPalette& palette) const {
  const QFontMetrics metrics(font_);
  const auto widest = toQString(format_.calendarUtc(
      CalendarPart::dayOfMonth, std::chrono::sys_seconds(std::chrono::days(series_.lastDay))));
  const double space = metrics.horizontalAdvance(widest) * wordsPerTick;
  const auto most = static_cast<std::size_t>(std::max(1.0, plot_.width() / space));
  for (const DateTick& tick : dateTicks(series_, most, format_)) {
    const double left = std::round(x(tick.day));
    painter.fillRect(QRectF(left, plot_.bottom(), 1, gap), theme::outlineColor(palette));
    painter.setPen(theme::textColor(theme::TextColor::secondary, palette));
    // Words that would leave the picture stand a little to the left of their mark.
    const double width = std::max(metrics.horizontalAdvance(toQString(tick.name)),
                                  metrics.horizontalAdvance(toQString(tick.year)));
    const QRectF words(std::min(left, area_.right() - width), plot_.bottom() + gap, width + 1,
                       metrics.height());
    const bool hasName = !tick.name.empty();
    painter.drawText(words, Qt::AlignLeft, toQString(hasName ? tick.name : tick.year));
    if (hasName) {
      painter.drawText(words.translated(0, metrics.height()), Qt::AlignLeft, toQString(tick.year));
    }
  }
}

void HistoryPicture::paintBars(QPainter& painter, const QPalette& palette) const {
  // Filled row by row in an image of the device's pixels: a rectangle for each of thousands of days
  // would take longer than a frame.
  const double scale = painter.device()->devicePixelRatioF();
  QImage image((plot_.size() * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  const std::vector<int> tops = barTops(image.size());
  const auto color = qPremultiply(barColor(palette).rgba());
  for (int y = 0; y < image.height(); ++y) {
    std::ranges::transform(tops, reinterpret_cast<QRgb*>(image.scanLine(y)),
                           [y, color](int top) { return y >= top ? color : 0; });
  }
  image.setDevicePixelRatio(scale);
  painter.drawImage(plot_.topLeft(), image);
}

std::vector<int> HistoryPicture::barTops(QSize size) const {
  std::vector<int> tops(static_cast<std::size_t>(size.width()), size.height());
  const double dayWidth = size.width() / dayTotal();
  const double inset = dayWidth >= narrowestBar ? dayWidth * (1 - barShare) / 2 : 0;
  for (const ChartDay& day : series_.days) {
    if (!day.sats) { continue; }
    // Whole pixels, at least one, so that bars of equal days look equal and none is lost; where
    // several days share a column the tallest stands for them.
    const double begin = static_cast<double>(day.day - series_.firstDay) * dayWidth;
    const auto first = static_cast<std::size_t>(begin + inset);
    const auto end = std::max(static_cast<std::size_t>(begin + dayWidth - inset), first + 1);
    const double share = std::min(*day.sats / series_.topSats, 1.0);
    const int top = static_cast<int>(std::lround(size.height() * (1 - share)));
    for (std::size_t column = first; column < std::min(end, tops.size()); ++column) {
      tops[column] = std::min(tops[column], top);
    }
  }
  return tops;
}

std::vector<QPointF> HistoryPicture::linePoints() const {
  std::vector<QPointF> points;
  QPointF sum;
  double days = 0;
  const auto finish = [&] {
    if (days > 0) { points.emplace_back(sum.x() / days, lineTop(sum.y() / days)); }
    sum = {};
    days = 0;
  };
  double column = plot_.left();
  for (const ChartDay& day : series_.days) {
    if (!day.hashRate) { continue; }
    const double middle = x(day.day) + dayWidth_ / 2;
    if (middle >= column + 1 || dayWidth_ >= 1) {
      finish();
      column = std::floor(middle);
    }
    sum += QPointF(middle, *day.hashRate);
    ++days;
  }
  finish();
  return points;
}

void HistoryPicture::paintLine(QPainter& painter, const QPalette& palette) const {
  painter.setRenderHint(QPainter::Antialiasing);
  QPen pen(lineColor(palette), lineWidth, Qt::SolidLine, Qt::RoundCap);
  // Where a column is several days the line is all turns, and one of a pixel is drawn much faster.
  if (dayWidth_ < 1) {
    pen.setWidth(1);
    pen.setCosmetic(true);
  }
  painter.setPen(pen);
  const double farthest = std::max(dayWidth_ * 1.5, 2.5);  // between days that follow each other
  std::optional<QPointF> last;
  // Line by line: the outline of a whole polyline takes ten times as long to fill.
  for (const QPointF& point : linePoints()) {
    if (last && point.x() - last->x() <= farthest) {
      painter.drawLine(*last, point);
    } else {
      painter.drawPoint(point);
    }
    last = point;
  }
}
}  // namespace orvane
