#include "shell/app/menu_bar_window_content.h"

#include <QPointer>
#include <QShowEvent>
#include <QVBoxLayout>
#include <utility>

namespace orvane {

MenuBarWindowContent::MenuBarWindowContent(std::unique_ptr<QWidget> content, DesktopWindow& window,
                                           Executor& executor,
                                           std::shared_ptr<BackgroundRuntime> runtime,
                                           QWidget* parent)
    : QWidget(parent),
      window_(window),
      executor_(executor),
      content_(content.release()),
      visibility_(std::move(runtime), [this] { showOrHideContent(); }) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(content_);
  // The window keeps its size while its content is away.
  auto policy = content_->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  content_->setSizePolicy(policy);
  visibility_.handleWindow(&window_);
  showOrHideContent();
}

void MenuBarWindowContent::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  reportWindow();
}

void MenuBarWindowContent::reportWindow() {
  // Only after the show is over does the window count as visible.
  executor_.post([self = QPointer(this)] {
    if (self) { self->visibility_.handleWindow(&self->window_); }
  });
}

void MenuBarWindowContent::showOrHideContent() { content_->setVisible(visibility_.showsContent()); }

}  // namespace orvane
