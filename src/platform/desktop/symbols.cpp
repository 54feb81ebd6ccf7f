#include "platform/desktop/symbols.h"
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>
#include <utility>

// Q_INIT_RESOURCE declares a function of the global namespace.
static void initSymbolResources() { Q_INIT_RESOURCE(symbols); }

namespace orvane {
namespace {
/// Up to this height the icon's own small drawing is used: fewer, heavier strokes.
constexpr int smallIconLimit = 24;

QString symbolPath(const QString& name) {
  initSymbolResources();
  return QStringLiteral(":/orvane/symbols/%1.svg").arg(name);
}

qreal aspectRatio(const QSvgRenderer& drawing) {
  const auto box = drawing.viewBoxF();
  return box.height() > 0 ? box.width() / box.height() : 1;
}

QPixmap transparentPixmap(const QSize& devicePixels, qreal devicePixelRatio) {
  QPixmap pixmap(devicePixels);
  pixmap.setDevicePixelRatio(devicePixelRatio);
  pixmap.fill(Qt::transparent);
  return pixmap;
}

QPixmap drawSymbol(const QString& path, int size, const QColor& color, qreal devicePixelRatio) {
  QSvgRenderer drawing(path);
  const auto width = std::max(1, static_cast<int>(std::round(size * aspectRatio(drawing))));
  auto pixmap = transparentPixmap(QSize(width, size) * devicePixelRatio, devicePixelRatio);
  const QRectF whole(0, 0, width, size);
  QPainter painter(&pixmap);
  drawing.render(&painter, whole);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(whole, color);
  return pixmap;
}

/// The size that an icon is asked for in, which since Qt 6.8 is one in logical pixels.
QSize inDevicePixels(const QSize& size, [[maybe_unused]] qreal scale) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
  return size * scale;
#else
  return size;
#endif
}

class SymbolEngine final : public QIconEngine {
 public:
  SymbolEngine(QString name, const QPalette& palette) : name_(std::move(name)), palette_(palette) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
             QIcon::State /*state*/) override {
    const auto ratio = painter->device()->devicePixelRatio();
    painter->drawPixmap(rect.topLeft(), symbolPixmap(name_, rect.height(), colorIn(mode), ratio));
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return scaledPixmap(size, mode, state, 1);
  }

  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/,
                       qreal scale) override {
    const int height = qRound(inDevicePixels(size, scale).height() / scale);
    return symbolPixmap(name_, height, colorIn(mode), scale);
  }

  QIconEngine* clone() const override { return new SymbolEngine(*this); }
  QString key() const override { return QStringLiteral("orvane-symbol"); }

 private:
  [[nodiscard]] QColor colorIn(QIcon::Mode mode) const {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    return palette_.color(group, QPalette::ButtonText);
  }

  QString name_;
  QPalette palette_;
};

/// Draws the icon at whatever size is asked for, so that no size is made before it is needed.
class ApplicationIconEngine final : public QIconEngine {
 public:
  void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/,
             QIcon::State /*state*/) override {
    const auto devicePixels = rect.height() * painter->device()->devicePixelRatio();
    const bool isSmall = devicePixels <= smallIconLimit;
    QSvgRenderer drawing(isSmall ? QStringLiteral(":/orvane/icon/small.svg")
                                 : QStringLiteral(":/orvane/icon/scalable.svg"));
    drawing.render(painter, rect);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    auto pixmap = transparentPixmap(size, 1);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }

  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                       qreal scale) override {
    return pixmap(inDevicePixels(size, scale), mode, state);
  }

  // Each window's start draws all of them for the window manager. What shows larger ones finds the
  // drawing itself through the desktop's entry.
  QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
    QList<QSize> sizes;
    for (const int side : {16, 22, 24, 32, 48, 64}) {
      sizes.append(QSize(side, side));
    }
    return sizes;
  }

  QIconEngine* clone() const override { return new ApplicationIconEngine(*this); }
  QString key() const override { return QStringLiteral("orvane-application-icon"); }
};
}  // namespace

bool hasSymbol(const QString& name) { return QFile::exists(symbolPath(name)); }

QPixmap symbolPixmap(const QString& name, int size, const QColor& color, qreal devicePixelRatio) {
  if (size <= 0 || !hasSymbol(name)) { return {}; }
  const auto key = QStringLiteral("orvane/%1/%2/%3/%4")
                       .arg(name)
                       .arg(size)
                       .arg(color.rgba(), 0, 16)
                       .arg(devicePixelRatio);
  QPixmap pixmap;
  if (!QPixmapCache::find(key, &pixmap)) {
    pixmap = drawSymbol(symbolPath(name), size, color, devicePixelRatio);
    QPixmapCache::insert(key, pixmap);
  }
  return pixmap;
}

qreal symbolAspectRatio(const QString& name) {
  return hasSymbol(name) ? aspectRatio(QSvgRenderer(symbolPath(name))) : 1;
}

QIcon symbolIcon(const QString& name, const QPalette& palette) {
  return QIcon(new SymbolEngine(name, palette));  // the icon owns its engine
}

QIcon applicationIcon() {
  initSymbolResources();
  return QIcon(new ApplicationIconEngine);  // the icon owns its engine
}
}  // namespace orvane
