#include "pool/history_export.h"
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include "pool/pool_documents.h"

namespace orvane {
namespace {
using Fields = std::array<std::string, 5>;

const Fields titles{"Date", "Average hash rate (H/s)", "Shares", "Reward (BTC)", "Reward (sats)"};

/// As many digits as tell the number from all others, without an exponent.
std::string numberField(double value) {
  std::array<char, 400> text{};
  const auto written =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  return written.ec == std::errc{} && std::isfinite(value) ? std::string(text.data(), written.ptr)
                                                           : std::string();
}

/// A text of the pool's that a spreadsheet will not compute.
std::string textField(const std::string& text) {
  const bool isComputed = !text.empty() && std::string_view("=+-@\t\r\n").contains(text[0]);
  return isComputed && !Decimal::parse(text) ? "'" + text : text;
}

Fields fieldsOf(const BraiinsHistoryDay& day) {
  Fields fields;
  fields[0] = utcDateText(day.date);
  if (day.averageHashRate) { fields[1] = numberField(*day.averageHashRate); }
  if (day.shares) { fields[2] = fmt::to_string(*day.shares); }
  if (day.rewardBTC) {
    fields[3] = textField(*day.rewardBTC);
    const auto bitcoins = Decimal::parse(*day.rewardBTC);
    if (bitcoins) { fields[4] = (*bitcoins * satsPerBTC).toText(); }
  }
  return fields;
}

std::string quotedWhereNecessary(const std::string& field) {
  if (field.find_first_of(",\"\r\n") == std::string::npos) { return field; }
  std::string quoted = "\"";
  for (const char each : field) {
    if (each == '"') { quoted += '"'; }
    quoted += each;
  }
  return quoted + '"';
}

std::string onOneLine(std::string field) {
  std::ranges::replace_if(
      field, [](char each) { return std::string_view("\t\r\n").contains(each); }, ' ');
  return field;
}
}  // namespace

std::string historyCsv(std::span<const BraiinsHistoryDay> days) {
  std::string text;
  const auto addRow = [&text](const Fields& fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (i > 0) { text += ','; }
      text += quotedWhereNecessary(fields.at(i));
    }
    text += "\r\n";
  };
  addRow(titles);
  for (const BraiinsHistoryDay& day : days) {
    addRow(fieldsOf(day));
  }
  return text;
}

std::string historyTabSeparated(std::span<const BraiinsHistoryDay> days) {
  std::string text;
  for (const BraiinsHistoryDay& day : days) {
    const Fields fields = fieldsOf(day);
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (i > 0) { text += '\t'; }
      text += onOneLine(fields.at(i));
    }
    text += '\n';
  }
  return text;
}
}  // namespace orvane
