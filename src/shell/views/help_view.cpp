#include "shell/views/help_view.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "shell/views/column_area.h"
#include "shell/views/frames.h"
#include "shell/views/text_label.h"
#include "shell/views/view_footer.h"

namespace orvane {
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
