#include "shell/views/about_view.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "shell/views/frames.h"
#include "shell/views/text_label.h"
#include "shell/views/view_footer.h"

namespace orvane {
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

}  // namespace orvane
