// An answer of a server, as bytes. The first one says how they are cut into pieces, which may make
// no difference.

#include <algorithm>
#include <cstddef>
#include <string>
#include "fuzzer.h"
#include "platform/http/response_reader.h"

namespace {
using orvane::ResponseReader;
using State = ResponseReader::State;

struct Outcome {
  State state = State::unfinished;
  bool isWholeAtEnd = false;
  orvane::HttpAnswer answer;
};

Outcome outcomeOf(std::string_view bytes, std::size_t piece) {
  ResponseReader reader;
  Outcome outcome;
  while (!bytes.empty() && outcome.state == State::unfinished) {
    outcome.state = reader.read(bytes.substr(0, piece));
    bytes.remove_prefix(std::min(piece, bytes.size()));
  }
  outcome.isWholeAtEnd = reader.isWholeAtEnd();
  if (outcome.state == State::complete || outcome.isWholeAtEnd) {
    outcome.answer = reader.takeAnswer();
  }
  return outcome;
}
}  // namespace

void orvane::tryInput(std::string_view input) {
  if (input.empty()) { return; }
  const std::string_view bytes = input.substr(1);
  const auto piece = std::size_t{static_cast<unsigned char>(input.front())} + 1;
  const Outcome whole = outcomeOf(bytes, bytes.size());
  const Outcome inPieces = outcomeOf(bytes, piece);
  require(whole.state == inPieces.state);
  require(whole.isWholeAtEnd == inPieces.isWholeAtEnd);
  require(whole.answer.body == inPieces.answer.body);
  require(whole.answer.location == inPieces.answer.location);
  require(whole.answer.body.size() <= bytes.size());
  require(whole.answer.location.find_first_of("\r\n") == std::string::npos);
  if (whole.state == State::complete || whole.isWholeAtEnd) {
    require(whole.answer.status >= 200 && whole.answer.status <= 999);
    require(!whole.isWholeAtEnd || whole.state == State::unfinished);
  }
}
