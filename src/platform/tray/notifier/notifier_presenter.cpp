#include "platform/tray/notifier/notifier_presenter.h"
#include <array>
#include <chrono>
#include <utility>
#include "platform/text/unicode.h"
#include "platform/tray/notifier/icon_folder.h"

namespace orvane {
namespace {
using namespace std::chrono_literals;

constexpr auto timeToDrawAnIcon = 1s;

/// The icon heights of panels at 100 and 200 %. Hosts take the nearest and scale it.
constexpr std::array squareSides{16, 22, 24, 32, 44, 48, 64};
constexpr std::array wideHeights{22, 24, 26, 28, 30, 32, 36, 40, 44, 48};
/// Files cannot be offered in several sizes: hosts scale this one, which is for 200 %, down.
constexpr int fileHeight = 44;

using Drawing = QImage (*)(const StatusImage&, int, const StatusInk&);

template <class Heights>
QList<QImage> drawAll(const Heights& heights, Drawing draw, const StatusImage& image,
                      const StatusInk& ink) {
  QList<QImage> images;
  for (const int height : heights) {
    images.append(draw(image, height, ink));
  }
  return images;
}
}  // namespace

NotifierPresenter::NotifierPresenter(Presentation presentation, Executor& executor,
                                     StatusRequests requests)
    : presentation_(presentation),
      executor_(executor),
      bus_(executor),
      requests_(std::move(requests)) {
  if (presentation_ == Presentation::labelBesideFile) { icons_ = std::make_unique<IconFolder>(); }
  busObserver_ = bus_.observe([this] { appear(); });
}

NotifierPresenter::~NotifierPresenter() = default;

void NotifierPresenter::show(const StatusContent& content) {
  if (content_ == content) {
    if (menu_) { menu_->contentMayHaveChanged(); }
    return;
  }
  content_ = content;
  const auto before = std::exchange(state_, stateFor(content));
  if (!item_) {
    appear();
    return;
  }
  item_->setState(state_);
  if (state_.icons != before.icons) { announceIconAgain(); }
  menu_->contentMayHaveChanged();
}

/// GNOME's extension drops an icon that comes while it still draws the one before it, as the first
/// green one may after a start, and then keeps the old one.
void NotifierPresenter::announceIconAgain() {
  if (presentation_ != Presentation::labelBesideSymbol) { return; }
  announcingAgain_.emplace(executor_, timeToDrawAnIcon, [this] { item_->announceIcon(); });
}

void NotifierPresenter::appear() {
  announcingAgain_.reset();
  item_.reset();
  menu_.reset();
  if (!content_ || !bus_.isOpen()) { return; }
  // The menu first: a host may ask for it as soon as it hears of the item.
  menu_.emplace(bus_.connection(), QLatin1String(NotifierItem::menuPath), executor_,
                requests_.menu);
  item_.emplace(bus_, requests_, state_);
}

NotifierState NotifierPresenter::stateFor(const StatusContent& content) {
  NotifierState state;
  state.toolTip = QString::fromStdString(numbersIsolated(
      presentation_ == Presentation::square ? content.toolTipWithText() : content.toolTip));
  if (!content.image) { return state; }
  state.title = QString::fromStdString(content.image->accessibilityDescription);
  addIcon(state, *content.image, inkFor(*content.image, content.shade));
  return state;
}

void NotifierPresenter::addFile(NotifierState& state, const QImage& image) {
  const auto& file = icons_->store(image);
  state.iconThemePath = file.folder;
  state.iconName = file.name;
}

void NotifierPresenter::addIcon(NotifierState& state, const StatusImage& image,
                                const StatusInk& ink) {
  switch (presentation_) {
    case Presentation::labelBesideSymbol:
      state.icons = drawAll(squareSides, drawSymbolSquare, image, ink);
      state.label = QString::fromStdString(numbersIsolated(image.text));
      return;
    case Presentation::labelBesideFile:
      state.label = QString::fromStdString(numbersIsolated(image.text));
      addFile(state, drawSymbolSquare(image, fileHeight, ink));
      if (state.iconName.isEmpty()) {
        state.icons = drawAll(squareSides, drawSymbolSquare, image, ink);
      }
      return;
    case Presentation::widePixmap:
      state.icons = drawAll(wideHeights, drawWide, image, ink);
      return;
    case Presentation::square:
    case Presentation::dockedWide:
    case Presentation::dockedSquare:
      state.icons = drawAll(squareSides, drawFigureSquare, image, ink);
      return;
  }
}
}  // namespace orvane
