#include "shell/views/about_and_help.h"
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>
#include "platform/desktop/symbols.h"
#include "shell/views/controls.h"
#include "shell/views/frames.h"
#include "shell/views/labels.h"
#include "shell/views/qt_text.h"

namespace orvane {
using theme::TextColor;
using theme::TextStyle;

namespace {
constexpr int headerSpacing = 5;
constexpr int contextualHelpPadding = 4;

/// The application's icon, sharp at the device's own pixels.
class AppIconLabel final : public QWidget {
 public:
  explicit AppIconLabel(QWidget* parent) : QWidget(parent) {
    setFixedSize(theme::appIconSize, theme::appIconSize);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    applicationIcon().paint(&painter, rect());
  }
};

/// The icon with `texts` beside it; the labels among them are `header`'s own.
void fillHeader(QWidget* header, QVBoxLayout* texts) {
  auto* const row = new QHBoxLayout(header);
  row->setContentsMargins(theme::windowPadding, theme::windowPadding, theme::windowPadding,
                          theme::windowPadding);
  row->setSpacing(theme::cardPadding);
  row->addWidget(new AppIconLabel(header), 0, Qt::AlignTop);
  row->addLayout(texts, 1);
}

QWidget* aboutHeader(const FennickAppInfo& app, const std::string& versionText, QWidget* parent) {
  auto* const header = new QWidget(parent);
  auto* const version =
      new TextLabel(toQString(versionText), TextStyle::callout, TextColor::secondary, header);
  version->makeSelectable();
  auto* const texts = new QVBoxLayout;
  texts->setSpacing(theme::metricLineSpacing);
  texts->addWidget(
      new TextLabel(toQString(app.name), TextStyle::titleBold, TextColor::primary, header));
  texts->addWidget(version);
  texts->addSpacing(theme::smallSpacing);
  texts->addWidget(
      wrappingText(toQString(app.summary), TextStyle::body, TextColor::primary, header));
  texts->addStretch();
  fillHeader(header, texts);
  return header;
}

QWidget* helpHeader(const FennickAppInfo& app, QWidget* parent) {
  auto* const header = new QWidget(parent);
  auto* const texts = new QVBoxLayout;
  texts->setSpacing(headerSpacing);
  texts->addStretch();
  texts->addWidget(
      wrappingText(toQString(app.name), TextStyle::titleBold, TextColor::primary, header));
  texts->addWidget(
      wrappingText(toQString(app.summary), TextStyle::headline, TextColor::secondary, header));
  texts->addStretch();
  fillHeader(header, texts);
  return header;
}

ColumnArea* helpTexts(const FennickAppInfo& app, QWidget* parent) {
  auto* const area = new ColumnArea(QWidget::tr("Help"), theme::helpSpacing, parent);
  area->setFocusPolicy(Qt::StrongFocus);
  const auto add = [area](TextStyle style, const std::string& text) {
    auto* const label = wrappingText(toQString(text), style, TextColor::primary, area->widget());
    label->makeSelectable(TextLabel::By::mouse);
    area->column()->addWidget(label);
    return label;
  };
  add(TextStyle::title2Bold, "About this app");
  for (const auto& paragraph : app.helpIntroduction) {
    add(TextStyle::body, paragraph);
  }
  if (app.contextualHelp) {
    add(TextStyle::title2Bold, "Contextual help");
    add(TextStyle::body, *app.contextualHelp)->setMargin(contextualHelpPadding);
  }
  area->column()->addStretch();
  return area;
}

QWidget* footer(const std::string& brandUrl, const std::function<void()>& closeAction,
                QWidget* view) {
  auto* const footer = new QWidget(view);
  footer->setMinimumHeight(theme::footerHeight);
  auto* const close = new TextButton(QWidget::tr("Close"), footer);
  QObject::connect(close, &QPushButton::clicked, footer, [view, closeAction] {
    if (closeAction) {
      closeAction();
    } else {
      view->window()->close();
    }
  });
  auto* const row = new QHBoxLayout(footer);
  row->setContentsMargins(theme::footerPadding, theme::smallSpacing, theme::footerPadding,
                          theme::smallSpacing);
  row->addWidget(new LinkLabel(TextStyle::body, "The Fennick Tools", brandUrl, footer));
  row->addStretch();
  row->addWidget(close);
  return footer;
}

QVBoxLayout* columnWithoutGaps(QWidget* view) {
  auto* const column = new QVBoxLayout(view);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  return column;
}
}  // namespace

FennickAboutView::FennickAboutView(const FennickAppInfo& app,
                                   const std::function<void()>& closeAction,
                                   const std::string& brandUrl, const std::string& versionText,
                                   QWidget* parent)
    : QWidget(parent) {
  setFixedWidth(theme::aboutWidth);
  auto* const column = columnWithoutGaps(this);
  column->addWidget(aboutHeader(app, versionText, this), 1);
  column->addWidget(new Divider(Qt::Horizontal, this));
  column->addWidget(footer(brandUrl, closeAction, this));
}

FennickAppHelpView::FennickAppHelpView(const FennickAppInfo& app,
                                       const std::function<void()>& closeAction,
                                       const std::string& brandUrl, QWidget* parent)
    : QWidget(parent) {
  setMinimumSize(theme::helpMinimumWidth, theme::helpMinimumHeight);
  auto* const column = columnWithoutGaps(this);
  column->addWidget(helpHeader(app, this));
  column->addWidget(new Divider(Qt::Horizontal, this));
  column->addWidget(helpTexts(app, this), 1);
  column->addWidget(footer(brandUrl, closeAction, this));
}
}  // namespace orvane
