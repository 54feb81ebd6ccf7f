#include "platform/http/response_reader.h"
#include <algorithm>
#include <charconv>
#include <memory>
#include <system_error>
#include "platform/http/http_syntax.h"

namespace orvane {
namespace {
constexpr std::uint64_t largestBody = 32ULL * 1024 * 1024;
constexpr std::size_t mostExtraBytes = 64UL * 1024;
constexpr int mostLines = 100;
constexpr std::size_t mostSizeDigits = 16;
constexpr std::size_t lineEndBytes = 2;

constexpr int switchingProtocols = 101;
constexpr int firstFinalStatus = 200;
constexpr int firstRedirectStatus = 300;
constexpr int noContent = 204;
constexpr int notModified = 304;

constexpr std::string_view blanks = " \t";

template <class Number>
std::optional<Number> numberOf(std::string_view digits, int base) {
  Number number = 0;
  const char* const end = std::to_address(digits.end());
  const auto [stop, error] = std::from_chars(std::to_address(digits.begin()), end, number, base);
  return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) { return {}; }
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool hasControlCharacter(std::string_view line) {
  return std::ranges::any_of(line, [](char character) {
    const auto byte = static_cast<unsigned char>(character);
    return (byte < 0x20 && character != '\t') || byte == 0x7F;
  });
}

struct Field {
  std::string_view name;
  std::string_view value;
};

/// None for a line that goes on with the one before it, too.
std::optional<Field> fieldOf(std::string_view line) {
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos || !isToken(line.substr(0, colon))) { return std::nullopt; }
  return Field{.name = line.substr(0, colon), .value = trimmed(line.substr(colon + 1))};
}
}  // namespace

ResponseReader::State ResponseReader::read(std::string_view bytes) {
  while (!bytes.empty() && step_ != Step::complete && step_ != Step::broken) {
    if (isInBody()) {
      takeBody(bytes);
    } else if (takeLine(bytes)) {
      const std::string line = std::exchange(line_, {});
      step_ = afterLine(line);
    }
  }
  if (step_ == Step::broken) { return State::broken; }
  return step_ == Step::complete ? State::complete : State::unfinished;
}

void ResponseReader::takeBody(std::string_view& bytes) {
  const bool isCounted = step_ != Step::bodyToTheEnd;
  const std::string_view part = isCounted ? bytes.substr(0, left_) : bytes;
  if (part.size() > largestBody - answer_.body.size()) {
    step_ = Step::broken;
    return;
  }
  answer_.body.append(part);
  bytes.remove_prefix(part.size());
  if (!isCounted) { return; }
  left_ -= part.size();
  if (left_ == 0) { step_ = step_ == Step::body ? Step::complete : Step::chunkEnd; }
}

/// Whether `line_` now holds a whole one. What it may take is what the lines before it have left.
bool ResponseReader::takeLine(std::string_view& bytes) {
  const std::size_t end = bytes.find('\n');
  const bool isWhole = end != std::string_view::npos;
  const std::string_view part = bytes.substr(0, isWhole ? end + 1 : end);
  if (part.size() > mostExtraBytes - extraBytes_ - line_.size()) {
    step_ = Step::broken;
    return false;
  }
  line_.append(part);
  bytes.remove_prefix(part.size());
  return isWhole;
}

ResponseReader::Step ResponseReader::afterLine(std::string_view line) {
  if (!line.ends_with("\r\n")) { return Step::broken; }
  line.remove_suffix(lineEndBytes);
  if (hasControlCharacter(line)) { return Step::broken; }
  if (step_ == Step::chunkSize) { return afterChunkSize(line); }
  if (step_ == Step::chunkEnd) { return line.empty() ? Step::chunkSize : Step::broken; }
  extraBytes_ += line.size() + lineEndBytes;
  if (!line.empty() && ++lines_ > mostLines) { return Step::broken; }
  if (step_ == Step::statusLine) { return afterStatusLine(line); }
  return step_ == Step::header ? afterHeader(line) : afterTrailer(line);
}

ResponseReader::Step ResponseReader::afterStatusLine(std::string_view line) {
  constexpr std::string_view begin = "HTTP/1.";
  constexpr std::size_t codeAt = begin.size() + 2;  // behind one digit and a blank
  constexpr std::size_t codeEnd = codeAt + 3;
  if (!line.starts_with(begin) || line.size() < codeEnd || line[codeAt - 1] != ' ' ||
      (line.size() > codeEnd && line[codeEnd] != ' ')) {
    return Step::broken;
  }
  const auto version = numberOf<unsigned>(line.substr(begin.size(), 1), 10);
  const auto status = numberOf<unsigned>(line.substr(codeAt, codeEnd - codeAt), 10);
  if (!version || !status || *status < 100 || *status == switchingProtocols) {
    return Step::broken;
  }
  isOldVersion_ = *version == 0;
  answer_ = {.status = static_cast<int>(*status)};
  framing_ = {};
  return Step::header;
}

ResponseReader::Step ResponseReader::afterHeader(std::string_view line) {
  if (line.empty()) { return afterHead(); }
  const std::optional<Field> field = fieldOf(line);
  return field && note(field->name, field->value) ? Step::header : Step::broken;
}

bool ResponseReader::note(std::string_view name, std::string_view value) {
  if (isSameName(name, "Content-Length")) { return noteLength(value); }
  if (isSameName(name, "Transfer-Encoding")) {
    return !std::exchange(framing_.transferCoding, std::string(value));
  }
  if (isSameName(name, "Content-Encoding") && !isSameName(value, "identity")) {
    framing_.hasContentCoding = true;
  }
  if (isSameName(name, "Location")) {
    answer_.location = framing_.locations == 0 ? value : std::string_view();
    ++framing_.locations;
  }
  return true;
}

/// The same length may be said more than once.
bool ResponseReader::noteLength(std::string_view value) {
  for (std::size_t begin = 0; begin <= value.size();) {
    const std::size_t end = std::min(value.find(',', begin), value.size());
    const auto length = numberOf<std::uint64_t>(trimmed(value.substr(begin, end - begin)), 10);
    if (!length || framing_.length.value_or(*length) != *length) { return false; }
    framing_.length = length;
    begin = end + 1;
  }
  return true;
}

ResponseReader::Step ResponseReader::afterHead() {
  if (answer_.status < firstFinalStatus) { return Step::statusLine; }
  if (framing_.transferCoding && (framing_.length || isOldVersion_)) { return Step::broken; }
  if (answer_.status == noContent || answer_.status == notModified) { return Step::complete; }
  if (framing_.hasContentCoding && answer_.status < firstRedirectStatus) { return Step::broken; }
  if (framing_.transferCoding) {
    return isSameName(*framing_.transferCoding, "chunked") ? Step::chunkSize : Step::broken;
  }
  if (!framing_.length) { return Step::bodyToTheEnd; }
  left_ = *framing_.length;
  if (left_ > largestBody) { return Step::broken; }
  return left_ == 0 ? Step::complete : Step::body;
}

ResponseReader::Step ResponseReader::afterChunkSize(std::string_view line) {
  const std::size_t digits =
      std::min(line.find_first_not_of("0123456789ABCDEFabcdef"), line.size());
  const std::string_view extension = line.substr(digits);
  const std::string_view what = trimmed(extension);
  if (digits > mostSizeDigits || (!what.empty() && what.front() != ';')) { return Step::broken; }
  const auto size = numberOf<std::uint64_t>(line.substr(0, digits), 16);
  extraBytes_ += extension.size();
  if (!size || *size > largestBody - answer_.body.size()) { return Step::broken; }
  left_ = *size;
  return left_ == 0 ? Step::trailer : Step::chunk;
}

ResponseReader::Step ResponseReader::afterTrailer(std::string_view line) {
  if (line.empty()) { return Step::complete; }
  return fieldOf(line) ? Step::trailer : Step::broken;
}
}  // namespace orvane
