#pragma once

#include <memory>
#include <utility>

namespace orvane {

/// Stands for something that lasts as long as this object: a subscription, a key monitor. It may
/// outlive what it is registered with.
class Registration {
 public:
  Registration() = default;
  explicit Registration(std::shared_ptr<const void> registered)
      : registered_(std::move(registered)) {}

  [[nodiscard]] explicit operator bool() const { return registered_ != nullptr; }

 private:
  std::shared_ptr<const void> registered_;
};

}  // namespace orvane
