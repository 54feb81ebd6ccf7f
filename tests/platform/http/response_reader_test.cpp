#include "platform/http/response_reader.h"
#include <gtest/gtest.h>

namespace orvane::test { namespace {

using namespace std::string_literals;
using State = ResponseReader::State;

/// What the reader makes of an answer, as one text; it may not depend on how the bytes are cut.
std::string outcomeOf(const std::string& bytes) {
  std::string outcomes[2];
  for (const std::size_t piece : {bytes.size(), std::size_t{1}}) {
    ResponseReader reader;
    State state = State::unfinished;
    for (std::size_t at = 0; at < bytes.size() && state == State::unfinished; at += piece) {
      state = reader.read(std::string_view(bytes).substr(at, piece));
    }
    std::string& outcome = outcomes[piece == 1];
    if (state == State::broken) { outcome = "broken"; }
    if (state == State::unfinished && !reader.isWholeAtEnd()) { outcome = "cut off"; }
    if (!outcome.empty()) { continue; }
    const HttpAnswer answer = reader.takeAnswer();
    outcome = std::to_string(answer.status) + " " + answer.body;
    if (state == State::unfinished) { outcome += "|"; }
    if (!answer.location.empty()) { outcome += " to " + answer.location; }
  }
  EXPECT_EQ(outcomes[0], outcomes[1]);
  return outcomes[0];
}

std::string repeated(int times, const std::string& text) {
  std::string all;
  while (times-- > 0) {
    all += text;
  }
  return all;
}

TEST(ResponseReaderTest, AnAnswerIsReadOnlyAsFarAsItsFramingIsCertain) {
  const std::string ok = "HTTP/1.1 200 OK\r\n";
  const std::string chunked = ok + "Transfer-Encoding: chunked\r\n\r\n";
  const std::string interim =
      "HTTP/1.1 103 Early Hints\r\nContent-Length: 7\r\nLocation: /x\r\n\r\n";
  const std::string empty = "Content-Length: 0\r\n\r\n";
  const std::pair<std::string, std::string> cases[]{
      // The status line.
      {"HTTP/1.1 599\r\n" + empty, "599 "},
      {"HTTP/1.0 404 \r\n" + empty, "404 "},
      {"HTTP/1.1 200 OK", "cut off"},
      {"HTTP/2 200 OK\r\n" + empty, "broken"},
      {"HTTP/1.1  200 OK\r\n" + empty, "broken"},
      {"HTTP/1.1 2000\r\n" + empty, "broken"},
      {"HTTP/1.1 099\r\n" + empty, "broken"},
      {"HTTP/1.1 20\r\n" + empty, "broken"},
      {"http/1.1 200 OK\r\n" + empty, "broken"},
      {"\r\n" + ok + empty, "broken"},
      {interim + interim + ok + "Content-Length: 1\r\n\r\na", "200 a"},
      {"HTTP/1.1 101 Switching\r\n\r\n" + ok + empty, "broken"},
      // Lines.
      {"HTTP/1.1 200 OK\n" + empty, "broken"},
      {ok + "X: a\rb\r\n" + empty, "broken"},
      {ok + "X: a\0b\r\n"s + empty, "broken"},
      {ok + "X: a\x7F\r\n" + empty, "broken"},
      {ok + "X: a\r\n b\r\n" + empty, "broken"},
      {ok + "X : a\r\n" + empty, "broken"},
      {ok + ": a\r\n" + empty, "broken"},
      {ok + "X\r\n" + empty, "broken"},
      {ok + "X:\r\nY: \ta\xFF\t \r\n" + empty, "200 "},
      // How long the body is.
      {ok + "content-LENGTH: \t2 \r\n\r\nab and more", "200 ab"},
      {ok + "Content-Length: 2\r\n\r\na", "cut off"},
      {ok + "Content-Length: 2\r\nContent-Length: 2, 2\r\n\r\nab", "200 ab"},
      {ok + "Content-Length: 2\r\nContent-Length: 3\r\n\r\nabc", "broken"},
      {ok + "Content-Length: 2, 3\r\n\r\nabc", "broken"},
      {ok + "Content-Length:\r\n\r\n", "broken"},
      {ok + "Content-Length: +2\r\n\r\nab", "broken"},
      {ok + "Content-Length: 0x2\r\n\r\nab", "broken"},
      {ok + "Content-Length: 33554433\r\n\r\n", "broken"},
      {ok + "Content-Length: 18446744073709551617\r\n\r\na", "broken"},
      {ok + "\r\nto the end", "200 to the end|"},
      {"HTTP/1.1 204 No Content\r\n\r\n", "204 "},
      {"HTTP/1.1 304 Not Modified\r\nContent-Length: 5\r\n\r\n", "304 "},
      {ok + "Content-Encoding: gzip\r\n" + empty, "broken"},
      {ok + "Content-Encoding: Identity\r\n" + empty, "200 "},
      {"HTTP/1.1 403 No\r\nContent-Encoding: gzip\r\nContent-Length: 1\r\n\r\n?", "403 ?"},
      {"HTTP/1.1 302 F\r\nLocation: /a\r\n" + empty, "302  to /a"},
      {"HTTP/1.1 302 F\r\nLocation: /a\r\nLocation: /b\r\n" + empty, "302 "},
      // Chunks.
      {chunked + "2\r\nab\r\n00A;x=\"y\"\r\n0123456789\r\n0\r\n\r\n", "200 ab0123456789"},
      {chunked + "1 \t;x\r\na\r\n0 \r\nX: trailer\r\n\r\n", "200 a"},
      {chunked + "0\r\n\r\n", "200 "},
      {chunked + "2\r\nab\r\n0\r\n", "cut off"},
      {chunked + "2\r\nabc\r\n0\r\n\r\n", "broken"},
      {chunked + "\r\n", "broken"},
      {chunked + "-1\r\n", "broken"},
      {chunked + "2 2\r\nab\r\n0\r\n\r\n", "broken"},
      {chunked + "2000001\r\n", "broken"},
      {chunked + "10000000000000001\r\n", "broken"},
      {chunked + "00000000000000001\r\na\r\n0\r\n\r\n", "broken"},  // sizes are not counted
      {chunked + "0\r\nno trailer\r\n\r\n", "broken"},
      {ok + "Transfer-Encoding: Chunked\r\nContent-Length: 1\r\n\r\n", "broken"},
      {ok + "Transfer-Encoding: gzip, chunked\r\n\r\n", "broken"},
      {ok + "Transfer-Encoding: chunked\r\nTransfer-Encoding: chunked\r\n\r\n", "broken"},
      {"HTTP/1.0 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n", "broken"},
      // Limits of what is not body.
      {ok + repeated(98, "X: a\r\n") + empty, "200 "},
      {ok + repeated(99, "X: a\r\n") + empty, "broken"},
      {repeated(99, "HTTP/1.1 100 Go on\r\n\r\n") + "HTTP/1.1 204\r\n\r\n", "204 "},
      {repeated(101, "HTTP/1.1 100 Go on\r\n\r\n"), "broken"},
      {ok + "X: " + std::string(65'000, 'a') + "\r\n" + empty, "200 "},
      {ok + "X: " + std::string(66'000, 'a'), "broken"},
      {ok + repeated(10, "X: " + std::string(7'000, 'a') + "\r\n"), "broken"},
      {chunked + repeated(5'000, "1\r\na\r\n") + "0\r\n\r\n", "200 " + std::string(5'000, 'a')},
      {chunked + repeated(70, "1;" + std::string(1'000, 'x') + "\r\na\r\n"), "broken"},
      {chunked + "1;" + std::string(66'000, 'x'), "broken"},
      {chunked + "0\r\n" + repeated(99, "X: a\r\n"), "broken"},
  };
  for (const auto& [bytes, outcome] : cases) {
    EXPECT_EQ(outcomeOf(bytes), outcome) << bytes.substr(0, 200);
  }
}

}}  // namespace orvane::test
