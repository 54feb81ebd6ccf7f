#include "platform/defaults/setting_columns.h"

#include <nlohmann/json.hpp>

#include "platform/json/json_document.h"

namespace orvane {
namespace {

constexpr std::string_view textType = "text";
constexpr std::string_view dataType = "data";
constexpr std::string_view booleanType = "boolean";
constexpr std::string_view textsType = "texts";

std::string jsonOf(const SettingTexts& texts) {
  return nlohmann::json(texts).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::optional<SettingValue> textsOf(std::string_view json) {
  const std::optional<JsonDocument> document = JsonDocument::parse(json);
  if (!document || !document->root().isArray()) { return std::nullopt; }
  SettingTexts texts;
  for (const JsonMember& element : document->root()) {
    const std::optional<std::string_view> text = element.value.text();
    if (!text) { return std::nullopt; }
    texts.emplace_back(*text);
  }
  return texts;
}

/// Binds the type's name and the value, whichever type it is.
struct Bind {
  sqlite3_stmt* statement;
  int type;

  void operator()(const SettingText& value) const {
    bindText(statement, type, textType);
    bindText(statement, type + 1, value.text);
  }
  void operator()(const SettingData& value) const {
    bindText(statement, type, dataType);
    const char* const bytes = value.bytes.data();
    sqlite3_bind_blob64(statement, type + 1, bytes, value.bytes.size(), SQLITE_STATIC);
  }
  void operator()(bool value) const {
    bindText(statement, type, booleanType);
    sqlite3_bind_int(statement, type + 1, value ? 1 : 0);
  }
  void operator()(const SettingTexts& value) const {
    bindText(statement, type, textsType);
    const std::string json = jsonOf(value);
    const char* const bytes = json.data();
    sqlite3_bind_text64(statement, type + 1, bytes, json.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  }
};

}  // namespace

void bindText(sqlite3_stmt* statement, int parameter, std::string_view text) {
  const char* const bytes = text.data();
  sqlite3_bind_text64(statement, parameter, bytes, text.size(), SQLITE_STATIC, SQLITE_UTF8);
}

void bindSetting(sqlite3_stmt* statement, int typeParameter, const SettingValue& value) {
  std::visit(Bind{.statement = statement, .type = typeParameter}, value);
}

std::optional<SettingValue> settingOf(sqlite3_stmt* row, int typeColumn) {
  const int valueColumn = typeColumn + 1;
  const std::string_view type = bytesOf(row, typeColumn);
  const int storage = sqlite3_column_type(row, valueColumn);
  if (type == booleanType && storage == SQLITE_INTEGER) {
    return sqlite3_column_int64(row, valueColumn) != 0;
  }
  const std::string_view value = bytesOf(row, valueColumn);
  if (type == textType && storage == SQLITE_TEXT) { return SettingText{std::string(value)}; }
  if (type == dataType && storage == SQLITE_BLOB) { return SettingData{std::string(value)}; }
  if (type == textsType && storage == SQLITE_TEXT) { return textsOf(value); }
  return std::nullopt;
}

}  // namespace orvane
