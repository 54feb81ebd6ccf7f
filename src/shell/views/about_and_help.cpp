#include "shell/views/about_and_help.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/desktop/symbols.h"
#include "shell/views/frames.h"
#include "shell/views/labels.h"
#include "shell/views/theme.h"

namespace orvane {

ViewFooter::ViewFooter(const std::string& brandUrl, const std::function<void()>& closeAction,
                       QWidget* parent)
    : QWidget(parent) {
  setFixedHeight(theme::footerHeight);
  auto* const close = new QPushButton(tr("Close"), this);
  close->setMinimumHeight(theme::controlHeight);
  connect(close, &QPushButton::clicked, this, [this, closeAction] {
    if (closeAction) {
      closeAction();
    } else {
      window()->close();
    }
  });
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(theme::footerPadding, 0, theme::footerPadding, 0);
  row->addWidget(new LinkLabel(theme::TextStyle::body, "The Fennick Tools", brandUrl, this));
  row->addStretch();
  row->addWidget(close);
}

AppIconLabel::AppIconLabel(QWidget* parent) : QWidget(parent) {
  setFixedSize(theme::appIconSize, theme::appIconSize);
}

void AppIconLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  applicationIcon().paint(&painter, rect());
}

namespace {

using theme::TextColor;
using theme::TextStyle;

QWidget* aboutHeader(const FennickAppInfo& app, const std::string& versionText, QWidget* parent) {
  auto* const header = new QWidget(parent);
  auto* const name = new TextLabel(TextStyle::titleBold, TextColor::primary, header);
  name->showText(app.name);
  auto* const version = new TextLabel(TextStyle::callout, TextColor::secondary, header);
  version->showText(versionText);
  version->makeSelectable();
  auto* const summary = new TextLabel(TextStyle::body, TextColor::primary, header);
  summary->showText(app.summary);
  summary->setWordWrap(true);

  auto* const texts = new QVBoxLayout;
  texts->setSpacing(theme::metricLineSpacing);
  texts->addWidget(name);
  texts->addWidget(version);
  texts->addSpacing(theme::smallSpacing);
  texts->addWidget(summary);
  texts->addStretch();
  auto* const row = new QHBoxLayout(header);
  row->setContentsMargins(theme::windowPadding, theme::windowPadding, theme::windowPadding,
                          theme::windowPadding);
  row->setSpacing(theme::cardPadding);
  row->addWidget(new AppIconLabel(header), 0, Qt::AlignTop);
  row->addLayout(texts, 1);
  return header;
}

}  // namespace

FennickAboutView::FennickAboutView(const FennickAppInfo& app,
                                   const std::function<void()>& closeAction,
                                   const std::string& brandUrl, const std::string& versionText,
                                   QWidget* parent)
    : QWidget(parent) {
  setFixedWidth(theme::aboutWidth);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(aboutHeader(app, versionText, this), 1);
  column->addWidget(new Divider(Qt::Horizontal, this));
  column->addWidget(new ViewFooter(brandUrl, closeAction, this));
}

namespace {

using theme::TextColor;
using theme::TextStyle;

constexpr int headerSpacing = 5;
constexpr int contextualHelpPadding = 4;

TextLabel* wrappingText(TextStyle style, TextColor color, const std::string& text,
                        QWidget* parent) {
  auto* const label = new TextLabel(style, color, parent);
  label->showText(text);
  label->setWordWrap(true);
  return label;
}

QWidget* helpHeader(const FennickAppInfo& app, QWidget* parent) {
  auto* const header = new QWidget(parent);
  auto* const texts = new QVBoxLayout;
  texts->setSpacing(headerSpacing);
  texts->addStretch();
  texts->addWidget(wrappingText(TextStyle::titleBold, TextColor::primary, app.name, header));
  texts->addWidget(wrappingText(TextStyle::headline, TextColor::secondary, app.summary, header));
  texts->addStretch();
  auto* const row = new QHBoxLayout(header);
  row->setContentsMargins(theme::windowPadding, theme::windowPadding, theme::windowPadding,
                          theme::windowPadding);
  row->setSpacing(theme::cardPadding);
  row->addWidget(new AppIconLabel(header), 0, Qt::AlignTop);
  row->addLayout(texts, 1);
  return header;
}

ColumnArea* helpTexts(const FennickAppInfo& app, QWidget* parent) {
  auto* const area = new ColumnArea(QWidget::tr("Help"), theme::helpSpacing, parent);
  const auto add = [area](TextStyle style, const std::string& text) {
    auto* const label = wrappingText(style, TextColor::primary, text, area->widget());
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
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

}  // namespace

FennickAppHelpView::FennickAppHelpView(const FennickAppInfo& app,
                                       const std::function<void()>& closeAction,
                                       const std::string& brandUrl, QWidget* parent)
    : QWidget(parent) {
  setMinimumSize(theme::helpMinimumWidth, theme::helpMinimumHeight);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(helpHeader(app, this));
  column->addWidget(new Divider(Qt::Horizontal, this));
  column->addWidget(helpTexts(app, this), 1);
  column->addWidget(new Divider(Qt::Horizontal, this));
  column->addWidget(new ViewFooter(brandUrl, closeAction, this));
}

}  // namespace orvane
