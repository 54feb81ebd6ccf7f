#include "platform/desktop/status/bus/desktop_shade.h"

#include <utility>

#include "platform/desktop/portal/portal_names.h"

namespace orvane {
namespace {

PanelShade shadeOf(ColorPreference preference) {
  switch (preference) {
    case ColorPreference::none:
      return PanelShade::unknown;
    case ColorPreference::dark:
      return PanelShade::dark;
    case ColorPreference::light:
      return PanelShade::light;
  }
  return PanelShade::unknown;
}

}  // namespace

DesktopShade::DesktopShade(SessionBus& bus) : bus_(bus) {
  busObserver_ = bus_.observe([this] { follow(); });
  follow();
}

Registration DesktopShade::observe(std::function<void()> listener) {
  return changed_.subscribe(std::move(listener));
}

void DesktopShade::follow() {
  portal_.reset();
  preference_.reset();
  if (!bus_.isOpen()) { return; }
  const auto& connection = bus_.connection();
  preference_ = std::make_unique<PortalColorPreference>(
      connection, [this](ColorPreference preference) { setShade(shadeOf(preference)); });
  portal_ = std::make_unique<QDBusServiceWatcher>(portalService, connection,
                                                  QDBusServiceWatcher::WatchForRegistration);
  QObject::connect(portal_.get(), &QDBusServiceWatcher::serviceRegistered, preference_.get(),
                   [this] { ask(); });
  ask();
}

void DesktopShade::ask() { preference_->ask(PortalColorPreference::Start::never); }

void DesktopShade::setShade(PanelShade shade) {
  if (std::exchange(shade_, shade) != shade) { changed_.send(); }
}

}  // namespace orvane
