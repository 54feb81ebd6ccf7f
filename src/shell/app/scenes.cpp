#include "shell/app/scenes.h"
#include <QPointer>
#include <QShortcut>
#include <QShowEvent>
#include <QVBoxLayout>
#include <utility>
#include "platform/desktop/qt/window_placement.h"
#include "shell/menu_bar/window_visibility.h"
#include "shell/views/qt_text.h"

namespace orvane {
namespace {
/// Stands around the content of a help or about window and leaves its place empty while the window
/// is not on screen or the application lives in the status area alone.
class MenuBarWindowContent final : public QWidget {
 public:
  /// `window`: the one this stands in; it and `executor` outlive this object.
  MenuBarWindowContent(std::unique_ptr<QWidget> content, DesktopWindow& window, Executor& executor,
                       std::shared_ptr<BackgroundRuntime> runtime, QWidget* parent)
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

 protected:
  void showEvent(QShowEvent* event) override {
    QWidget::showEvent(event);
    // Only after the show is over does the window count as visible.
    executor_.post([self = QPointer(this)] {
      if (self) { self->visibility_.handleWindow(&self->window_); }
    });
  }

 private:
  void showOrHideContent() { content_->setVisible(visibility_.showsContent()); }

  DesktopWindow& window_;
  Executor& executor_;
  QWidget* content_;
  WindowVisibility visibility_;
};
}  // namespace

SceneWindows::SceneWindows(QtDesktopApplication& application, Executor& executor,
                           std::shared_ptr<BackgroundRuntime> runtime, MakeContent makeContent)
    : application_(application),
      executor_(executor),
      runtime_(std::move(runtime)),
      makeContent_(std::move(makeContent)) {}

DesktopWindow* SceneWindows::prepare(std::string_view id) {
  const auto* const scene = findScene(id);
  if (!scene) { return nullptr; }
  if (const auto known = windows_.find(id); known != windows_.end()) { return known->second; }
  return windows_.emplace(id, &make(*scene)).first->second;
}

void SceneWindows::open(std::string_view id) {
  if (auto* const window = prepare(id)) { window->makeKeyAndOrderFront(); }
}

DesktopWindow& SceneWindows::make(const WindowScene& scene) {
  auto frame = std::make_unique<QWidget>();
  frame->setWindowTitle(toQString(scene.title));
  auto* const layout = new QVBoxLayout(frame.get());
  layout->setContentsMargins(0, 0, 0, 0);
  auto content = makeContent_(scene);
  auto& frameWidget = *frame;
  auto& window = application_.addWindow(std::move(frame));
  if (scene.id == mainSceneId) {
    layout->addWidget(content.release());
  } else {
    layout->addWidget(
        new MenuBarWindowContent(std::move(content), window, executor_, runtime_, &frameWidget));
    const auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), &frameWidget);
    QObject::connect(escape, &QShortcut::activated, &frameWidget,
                     [&window] { window.performClose(); });
  }
  if (scene.defaultSize) {
    frameWidget.resize(scene.defaultSize->width, scene.defaultSize->height);
  } else {
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->activate();
  }
  placeOverMainWindow(frameWidget);
  return window;
}

void SceneWindows::placeOverMainWindow(QWidget& frame) const {
  const auto main = windows_.find(mainSceneId);
  if (main == windows_.end() || !main->second->isVisible()) { return; }
  const auto& mainWidget = QtDesktopApplication::widgetOf(*main->second);
  QRect place(QPoint(), frame.size());
  place.moveCenter(mainWidget.geometry().center());
  frame.setGeometry(placeWithin(roomOf(mainWidget), place));
}
}  // namespace orvane
