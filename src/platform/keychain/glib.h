#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <gio/gio.h>
#include "platform/async/completion.h"

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

/// Begins an asynchronous operation, handing on what it is given.
using GlibBegin =
    std::function<void(GCancellable* cancellable, GAsyncReadyCallback callback, gpointer data)>;

/// Takes the result of an operation that has ended; its failure is a value of T.
template <class T>
using GlibFinish = T (*)(GObject* source, GAsyncResult* result);

namespace detail {
template <class T>
struct GlibCall {
  Completion<T> completion;
  GlibFinish<T> finish;

  static void ended(GObject* source, GAsyncResult* result, gpointer data) {
    const std::unique_ptr<GlibCall> call(static_cast<GlibCall*>(data));
    call->completion.resolve(call->finish(source, result));
  }
};
}  // namespace detail

/// Waits for an asynchronous operation of GLib; gives T() when the task is cancelled. The operation
/// lives on in GLib's main context until it has noticed the cancellation: a context that nobody
/// iterates keeps nobody waiting here.
template <class T>
CompletionAwaiter<T> glibCall(GlibBegin begin, GlibFinish<T> finish) {
  typename CompletionAwaiter<T>::Start start = [begin = std::move(begin),
                                                finish](Completion<T> completion) {
    const auto cancellable = GRef<GCancellable>::adopt(g_cancellable_new());
    auto call = std::make_unique<detail::GlibCall<T>>(std::move(completion), finish);
    begin(cancellable.get(), &detail::GlibCall<T>::ended, call.release());
    return [cancellable] { g_cancellable_cancel(cancellable.get()); };
  };
  return untilResolved<T>(std::move(start), T());
}
}  // namespace orvane
