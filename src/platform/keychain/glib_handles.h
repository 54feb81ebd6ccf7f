#pragma once

#include <memory>
#include <utility>

#include <gio/gio.h>

namespace orvane {

/// A counted reference to a GObject.
template <class T>
class GRef {
 public:
  GRef() = default;
  /// Takes over a reference that the caller owns; null is fine.
  static GRef adopt(gpointer object) {
    GRef result;
    result.object_ = static_cast<T*>(object);
    return result;
  }
  GRef(const GRef& other) : object_(other.object_) {
    if (object_ != nullptr) { g_object_ref(object_); }
  }
  GRef(GRef&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  GRef& operator=(GRef other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~GRef() {
    if (object_ != nullptr) { g_object_unref(object_); }
  }

  [[nodiscard]] T* get() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

 private:
  T* object_ = nullptr;
};

template <auto release>
struct GReleaser {
  template <class T>
  void operator()(T* object) const {
    release(object);
  }
};

template <class T, auto release>
using GOwned = std::unique_ptr<T, GReleaser<release>>;

using GVariantRef = GOwned<GVariant, g_variant_unref>;

}  // namespace orvane
