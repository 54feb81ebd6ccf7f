#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>
#include <QStylePlugin>
#include <QtPlugin>

// Styles that draw buttons in colours of their own, whatever the palette: "stubborn" with a form
// for the dark beside it, "lone" without one.

namespace orvane::test {
class OwnColoredStyle final : public QProxyStyle {
  Q_OBJECT

 public:
  explicit OwnColoredStyle(QColor color) : QProxyStyle(QStringLiteral("fusion")), color_(color) {}

  using QProxyStyle::polish;
  void polish(QPalette& palette) override { palette = QPalette(color_); }
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    if (element == CE_PushButton) {
      painter->fillRect(option->rect, color_);
    } else {
      QProxyStyle::drawControl(element, option, painter, widget);
    }
  }

 private:
  QColor color_;
};

class OwnColoredStyles final : public QStylePlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QStyleFactoryInterface_iid FILE "own_colored_styles.json")

 public:
  QStyle* create(const QString& key) override {
    return new OwnColoredStyle(key.endsWith(QLatin1String("-dark")) ? 0xff202020 : 0xffe0e0e0);
  }
};
}  // namespace orvane::test

Q_IMPORT_PLUGIN(OwnColoredStyles)  // NOLINT

#include "own_colored_styles.moc"
