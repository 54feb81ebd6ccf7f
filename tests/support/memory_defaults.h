#pragma once

#include <map>
#include <variant>
#include "platform/defaults/user_defaults.h"

namespace orvane::test {
/// Settings that are forgotten with the object.
class MemoryDefaults final : public UserDefaults {
 public:
  struct Data {
    std::string bytes;
  };
  using Value = std::variant<std::string, Data, bool, std::vector<std::string>>;

  [[nodiscard]] std::optional<std::string> text(std::string_view key) const override {
    return get<std::string>(key);
  }
  [[nodiscard]] std::optional<std::string> data(std::string_view key) const override {
    const auto data = get<Data>(key);
    return data ? std::optional(data->bytes) : std::nullopt;
  }
  [[nodiscard]] std::optional<bool> boolean(std::string_view key) const override {
    return get<bool>(key);
  }
  [[nodiscard]] std::optional<std::vector<std::string>> texts(std::string_view key) const override {
    return get<std::vector<std::string>>(key);
  }

  void setText(std::string_view key, std::string_view value) override {
    set(key, std::string(value));
  }
  void setData(std::string_view key, std::string_view bytes) override {
    set(key, Data{std::string(bytes)});
  }
  void setBoolean(std::string_view key, bool value) override { set(key, value); }
  void setTexts(std::string_view key, const std::vector<std::string>& values) override {
    set(key, values);
  }
  void remove(std::string_view key) override { values_.erase(std::string(key)); }

 private:
  template <class T>
  [[nodiscard]] std::optional<T> get(std::string_view key) const {
    const auto found = values_.find(std::string(key));
    const T* const value = found == values_.end() ? nullptr : std::get_if<T>(&found->second);
    return value == nullptr ? std::nullopt : std::optional(*value);
  }
  void set(std::string_view key, Value value) {
    values_.insert_or_assign(std::string(key), std::move(value));
  }

  std::map<std::string, Value> values_;
};
}  // namespace orvane::test
