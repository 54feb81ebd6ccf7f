#include "platform/x11/x_settings.h"
#include <cstddef>

namespace orvane {
namespace {
constexpr std::size_t headerSize = 8;  ///< byte order, padding, serial number
constexpr std::uint8_t integerType = 0;
constexpr std::uint8_t textType = 1;
constexpr std::size_t colorSize = 8;

/// Reads numbers and texts one after the other. What lies beyond the end reads as zero or empty,
/// and then nothing more is there.
class Reader {
 public:
  explicit Reader(const std::vector<std::uint8_t>& bytes)
      : bytes_(bytes), isBigEndian_(!bytes.empty() && bytes[0] == 1), at_(headerSize) {}

  [[nodiscard]] bool hasMore() const { return at_ < bytes_.size(); }

  std::uint32_t number(std::size_t size) {
    if (!has(size)) { return 0; }
    std::uint32_t value = 0;
    for (std::size_t index = 0; index < size; ++index) {
      value = value << 8 | bytes_[at_ + (isBigEndian_ ? index : size - 1 - index)];
    }
    at_ += size;
    return value;
  }
  /// With the padding to four bytes that follows it.
  std::string_view text(std::size_t length) {
    const std::size_t start = at_;
    skip((length + 3) / 4 * 4);
    if (!hasMore() && at_ - start < length) { return {}; }
    return {reinterpret_cast<const char*>(bytes_.data()) + start, length};
  }
  void skip(std::size_t size) {
    if (has(size)) { at_ += size; }
  }

 private:
  bool has(std::size_t size) {
    const bool isThere = size <= bytes_.size() - at_;
    if (!isThere) { at_ = bytes_.size(); }
    return isThere;
  }

  const std::vector<std::uint8_t>& bytes_;
  bool isBigEndian_;
  std::size_t at_;
};
}  // namespace

std::optional<int> integerXSetting(const X11Display& display, std::string_view name) {
  const auto owner = display.ownerOf(display.atom("_XSETTINGS_S0"));
  if (owner == XCB_WINDOW_NONE) { return std::nullopt; }
  return integerAmong(display.bytes(owner, "_XSETTINGS_SETTINGS"), name);
}

std::optional<int> integerAmong(const std::vector<std::uint8_t>& settings, std::string_view name) {
  if (settings.size() < headerSize) { return std::nullopt; }
  Reader reader(settings);
  reader.skip(sizeof(std::uint32_t));  // their count; the end tells as much
  while (reader.hasMore()) {
    const auto type = reader.number(1);
    reader.skip(1);
    const auto found = reader.text(reader.number(2));
    reader.skip(sizeof(std::uint32_t));  // when it was changed
    if (type == integerType) {
      const auto value = static_cast<std::int32_t>(reader.number(sizeof(std::uint32_t)));
      if (found == name) { return value; }
    } else if (type == textType) {
      static_cast<void>(reader.text(reader.number(sizeof(std::uint32_t))));
    } else {
      reader.skip(colorSize);
    }
  }
  return std::nullopt;
}
}  // namespace orvane
