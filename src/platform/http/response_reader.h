#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace orvane {
/// An answer that arrived whole; a redirect too.
struct HttpAnswer {
  int status = 0;
  std::string body = {};
  std::string location = {};  ///< as the header says it; empty: none, or more than one
};

/// Reads the answer to one GET from the bytes of its connection (HTTP/1, RFC 9112), however they
/// are cut into pieces. Interim answers are skipped, and what follows the answer is ignored.
///
/// What cannot be told for certain is broken, not guessed: where the body ends, lines that end in
/// anything but CR LF or go on in the next, control characters, and a success with a content
/// coding, since none is asked for. So is what is larger than it may be: a body of more than 32
/// MiB, and beside the body 64 KiB or 100 lines, interim answers, trailers and chunk extensions
/// included.
class ResponseReader {
 public:
  enum class State { unfinished, complete, broken };

  State read(std::string_view bytes);

  /// Whether the answer is whole if the connection ends here in good order: one that says nothing
  /// about its length.
  [[nodiscard]] bool isWholeAtEnd() const { return step_ == Step::bodyToTheEnd; }

  /// Once, when it is complete or whole at the end.
  [[nodiscard]] HttpAnswer takeAnswer() { return std::move(answer_); }

 private:
  enum class Step {
    statusLine,
    header,
    body,  ///< as long as it was announced
    bodyToTheEnd,
    chunkSize,
    chunk,
    chunkEnd,
    trailer,
    complete,
    broken,
  };
  /// What the headers say about the body.
  struct Framing {
    std::optional<std::uint64_t> length = {};
    std::optional<std::string> transferCoding = {};
    bool hasContentCoding = false;
    int locations = 0;
  };

  [[nodiscard]] bool isInBody() const {
    return step_ == Step::body || step_ == Step::bodyToTheEnd || step_ == Step::chunk;
  }
  void takeBody(std::string_view& bytes);
  [[nodiscard]] bool takeLine(std::string_view& bytes);
  [[nodiscard]] Step afterLine(std::string_view line);
  [[nodiscard]] Step afterStatusLine(std::string_view line);
  [[nodiscard]] Step afterHeader(std::string_view line);
  [[nodiscard]] Step afterHead();
  [[nodiscard]] Step afterChunkSize(std::string_view line);
  [[nodiscard]] Step afterTrailer(std::string_view line);
  [[nodiscard]] bool noteLength(std::string_view value);
  [[nodiscard]] bool note(std::string_view name, std::string_view value);

  Step step_ = Step::statusLine;
  HttpAnswer answer_;
  Framing framing_;
  bool isOldVersion_ = false;   ///< HTTP/1.0
  std::string line_;            ///< its beginning, until its end has come
  std::uint64_t left_ = 0;      ///< of the body or of the chunk
  std::size_t extraBytes_ = 0;  ///< in lines that have ended, sizes of chunks excepted
  int lines_ = 0;
};
}  // namespace orvane
