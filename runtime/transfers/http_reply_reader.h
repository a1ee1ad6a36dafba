#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace peakwright {

/// Reads the reply to a GET request as it arrives, by the rules of HTTP/1.1 (RFC 9112), and takes
/// no liberties with where a body ends: a reply whose end can't be told for certain is malformed.
/// What it holds is bounded, whatever arrives.
class HttpReplyReader {
 public:
  /// Takes what has arrived, and gives what of it belongs to the body.
  std::string Read(std::string_view bytes);
  /// Takes the end of the connection; `isAnnounced` if the server said so before.
  void End(bool isAnnounced);

  bool HasHead() const { return state_ >= State::Body && state_ <= State::Whole; }
  bool IsWhole() const { return state_ == State::Whole; }
  bool IsMalformed() const { return state_ == State::Malformed; }

  int Status() const { return status_; }                     ///< As 200; 0 before it has arrived.
  const std::string& Location() const { return location_; }  ///< Of the header; maybe empty.
  std::int64_t AnnouncedLength() const { return length_; }   ///< Of the body in bytes, or 0.

 private:
  enum class State {
    // These take lines,
    StatusLine,
    Head,
    // and these have the head behind them.
    Body,
    ChunkSize,
    Chunk,
    ChunkEnd,
    Trailer,
    Whole,
    Malformed
  };

  std::size_t ReadBody(std::string_view bytes, std::string& body);
  std::size_t ReadLine(std::string_view bytes);
  State AfterLine(std::string_view line);
  State AfterStatusLine(std::string_view line);
  State AfterHeader(std::string_view line);
  State AfterHead();
  State AfterChunkSize(std::string_view line);
  bool IsAroundChunk() const { return state_ == State::ChunkSize || state_ == State::ChunkEnd; }

  State state_ = State::StatusLine;
  std::string line_;           // What has arrived of it.
  std::size_t headBytes_ = 0;  // Of all lines but those around chunks.
  int status_ = 0;
  bool isOldProtocol_ = false;     // HTTP/1.0
  std::string location_;           // Values of the headers that count,
  std::string announced_;          // of Content-Length as it stands there,
  std::string coding_;             // and of Transfer-Encoding.
  std::string* folded_ = nullptr;  // The one that a folded line would continue.
  std::int64_t length_ = 0;
  std::int64_t left_ = 0;     // Bytes of the body or the chunk that are to come.
  bool untilClosed_ = false;  // The body ends with the connection.
};

}  // namespace peakwright
