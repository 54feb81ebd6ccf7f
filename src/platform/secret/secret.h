#pragma once

#include <concepts>
#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>

namespace orvane {
/// A text that belongs to the user alone. Its memory is wiped before it is given back, and nothing
/// of it is left in an object that was moved from. Each copy is one more place: make few.
class Secret {
 public:
  Secret() = default;
  template <class Text>
    requires std::convertible_to<const Text&, std::string_view>
  Secret(const Text& text) {  // NOLINT(google-explicit-constructor): it is a text
    copy(text);
  }
  Secret(const Secret& other) { copy(other.view()); }
  Secret(Secret&& other) noexcept { swap(other); }
  Secret& operator=(Secret other) noexcept {
    swap(other);
    return *this;
  }
  ~Secret();

  [[nodiscard]] std::string_view view() const { return {bytes_.get(), size_}; }
  operator std::string_view() const { return view(); }  // NOLINT(google-explicit-constructor)
  [[nodiscard]] bool empty() const { return size_ == 0; }

  friend bool operator==(const Secret& left, const Secret& right) {
    return left.view() == right.view();
  }
  template <class Text>
    requires std::convertible_to<const Text&, std::string_view>
  friend bool operator==(const Secret& left, const Text& right) {
    return left.view() == std::string_view(right);
  }

 private:
  void copy(std::string_view text);
  void swap(Secret& other) noexcept {
    std::swap(bytes_, other.bytes_);
    std::swap(size_, other.size_);
  }

  std::unique_ptr<char[]> bytes_;
  std::size_t size_ = 0;
};

/// Keeps the memory of this process out of core dumps, and the process without any where the system
/// lets it decide. Programs that it starts inherit that and may change it.
void refuseCoreDumps();

/// Has memory written over when it is given back, by whomever. A socket leaves the request in its
/// buffer, and the token with it.
void wipeFreedMemory();
}  // namespace orvane
