#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace orvane::services {
/// The HTTPS services that are played here.
enum class Service {
  pool,
  explorer,
  price,
  fallback,  ///< the price source that is asked when the first one fails
  other,     ///< an origin that nobody should talk to; redirects point at it
};

inline constexpr std::array allServices{Service::pool, Service::explorer, Service::price,
                                        Service::fallback, Service::other};

/// The name in the control requests, the request log and the list of ports.
[[nodiscard]] constexpr std::string_view serviceName(Service service) {
  switch (service) {
    case Service::pool:
      return "pool";
    case Service::explorer:
      return "explorer";
    case Service::price:
      return "price";
    case Service::fallback:
      return "fallback";
    case Service::other:
      return "other";
  }
  return {};
}

[[nodiscard]] constexpr std::optional<Service> serviceNamed(std::string_view name) {
  for (const Service service : allServices) {
    if (serviceName(service) == name) { return service; }
  }
  return std::nullopt;
}

/// A place in arrays that hold something for each service.
[[nodiscard]] constexpr std::size_t indexOf(Service service) {
  return static_cast<std::size_t>(service);
}
}  // namespace orvane::services
