#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {
/// The user's settings: typed values by key. A missing key, and a value of another type than the
/// one asked for, read as nothing. A write is seen by the next read, also after a restart. Every
/// failure is silent: a value that cannot be read is missing, one that cannot be written is not
/// kept.
class UserDefaults {
 public:
  virtual ~UserDefaults() = default;

  [[nodiscard]] virtual std::optional<std::string> text(std::string_view key) const = 0;
  [[nodiscard]] virtual std::optional<std::string> data(std::string_view key) const = 0;
  [[nodiscard]] virtual std::optional<bool> boolean(std::string_view key) const = 0;
  [[nodiscard]] virtual std::optional<std::vector<std::string>> texts(
      std::string_view key) const = 0;

  virtual void setText(std::string_view key, std::string_view value) = 0;
  virtual void setData(std::string_view key, std::string_view bytes) = 0;
  virtual void setBoolean(std::string_view key, bool value) = 0;
  virtual void setTexts(std::string_view key, const std::vector<std::string>& values) = 0;
  virtual void remove(std::string_view key) = 0;
};
}  // namespace orvane
