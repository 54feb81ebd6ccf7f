#include "shell/app/scene_windows.h"

#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "shell/app/menu_bar_window_content.h"
#include "shell/views/qt_text.h"

namespace orvane {

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
  auto& window = make(*scene);
  windows_.emplace(id, &window);
  return &window;
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
  const auto screen = mainWidget.screen()->availableGeometry();
  frame.move(std::clamp(place.left(), screen.left(),
                        std::max(screen.left(), screen.right() - place.width())),
             std::clamp(place.top(), screen.top(),
                        std::max(screen.top(), screen.bottom() - place.height())));
}

}  // namespace orvane
