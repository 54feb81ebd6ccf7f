#include "platform/tray/notifier/notifier_presenter.h"
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <array>
#include <cerrno>
#include <csignal>
#include <utility>
#include "platform/text/unicode.h"

namespace orvane {
namespace {
const auto folderPrefix = QStringLiteral("orvane-status-");

bool isRunning(qint64 process) {
  return kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM;
}

void removeLeftovers(const QDir& runtime) {
  for (const auto& name : runtime.entryList({folderPrefix + u'*'}, QDir::Dirs)) {
    bool isNumber = false;
    const auto process = name.mid(folderPrefix.size()).toLongLong(&isNumber);
    if (isNumber && process > 0 && !isRunning(process)) {
      QDir(runtime.filePath(name)).removeRecursively();
    }
  }
}

/// The icon heights of panels at 100 and 200 %. Hosts take the nearest and scale it.
constexpr std::array squareSides{16, 22, 24, 32, 44, 48, 64};
constexpr std::array wideHeights{22, 24, 26, 28, 30, 32, 36, 40, 44, 48};
/// Files cannot be offered in several sizes: hosts scale this one down.
constexpr int fileHeight = 22;

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

/// Hands images to hosts that read icons from files. Each image gets a name of its own, for hosts
/// do not read a name twice. The folder lies in the user's runtime directory and goes with the
/// object; what a killed process left behind goes with the next one.
class IconFolder {
 public:
  IconFolder() {
    const auto runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (runtime.isEmpty()) { return; }
    const QDir directory(runtime);
    removeLeftovers(directory);
    const auto name = folderPrefix + QString::number(QCoreApplication::applicationPid());
    if (directory.mkpath(name)) { path_ = directory.filePath(name); }
  }
  ~IconFolder() {
    if (!path_.isEmpty()) { QDir(path_).removeRecursively(); }
  }
  IconFolder(const IconFolder&) = delete;
  IconFolder& operator=(const IconFolder&) = delete;

  /// Empty when there is no place to write to.
  [[nodiscard]] const QString& path() const { return path_; }

  /// The icon's name, which stands for a file in `path`; empty when it could not be written. The
  /// image before it stays readable for hosts that are late.
  [[nodiscard]] QString store(const QImage& image) {
    if (path_.isEmpty()) { return {}; }
    auto name = QStringLiteral("orvane-status-%1").arg(++count_);
    const auto file = path_ + u'/' + name + QStringLiteral(".png");
    if (!image.save(file)) { return {}; }
    if (!previous_.isEmpty()) { QFile::remove(previous_); }
    previous_ = std::exchange(newest_, file);
    return name;
  }

 private:
  QString path_;
  QString newest_;
  QString previous_;
  int count_ = 0;
};

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
  if (content_ == content) { return; }
  content_ = content;
  state_ = stateFor(content);
  if (!item_) {
    appear();
    return;
  }
  item_->setState(state_);
  menu_->contentMayHaveChanged();
}

void NotifierPresenter::appear() {
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

void NotifierPresenter::addIcon(NotifierState& state, const StatusImage& image,
                                const StatusInk& ink) {
  switch (presentation_) {
    case Presentation::labelBesideSymbol:
      state.icons = drawAll(squareSides, drawSymbolSquare, image, ink);
      state.label = QString::fromStdString(numbersIsolated(image.text));
      return;
    case Presentation::labelBesideFile:
      state.iconThemePath = icons_->path();
      state.label = QString::fromStdString(numbersIsolated(image.text));
      state.iconName = icons_->store(drawSymbolSquare(image, fileHeight, ink));
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
