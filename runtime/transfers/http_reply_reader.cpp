#include "runtime/transfers/http_reply_reader.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace peakwright {
namespace {

constexpr std::size_t kLongestHead = std::size_t{64} * 1024;  // Bytes, with the trailer.
constexpr std::size_t kLongestChunkSize = 1024;               // Bytes, with extensions.

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool SameIgnoringCase(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [&](char x, char y) { return lower(x) == lower(y); });
}

/// Without the blanks and tabs around it.
std::string_view Trimmed(std::string_view text) {
  const std::size_t from = text.find_first_not_of(" \t");
  if (from == std::string_view::npos) return {};
  return text.substr(from, text.find_last_not_of(" \t") - from + 1);
}

/// `text` as a number of bytes, if it is nothing but digits and not too large.
std::optional<std::int64_t> ToLength(std::string_view text, int base) {
  std::int64_t length = 0;
  const char* end = text.data() + text.size();
  const auto [read, error] = std::from_chars(text.data(), end, length, base);
  if (error != std::errc() || read != end || text.front() == '-') return std::nullopt;
  return length;
}

/// The length that all members of a list agree on; a proxy may have repeated it.
std::optional<std::int64_t> ToAgreedLength(std::string_view list) {
  std::optional<std::int64_t> agreed;
  for (;;) {
    const std::size_t comma = list.find(',');
    const std::optional<std::int64_t> length = ToLength(Trimmed(list.substr(0, comma)), 10);
    if (agreed.has_value() && agreed != length) return std::nullopt;
    agreed = length;
    if (comma == std::string_view::npos || !length.has_value()) return agreed;
    list.remove_prefix(comma + 1);
  }
}

}  // namespace

std::string HttpReplyReader::Read(std::string_view bytes) {
  std::string body;
  while (!bytes.empty() && state_ < State::Whole) {
    const bool isBody = state_ == State::Body || state_ == State::Chunk;
    bytes.remove_prefix(isBody ? ReadBody(bytes, body) : ReadLine(bytes));
  }
  return body;
}

void HttpReplyReader::End(bool isAnnounced) {
  if (state_ == State::Body && untilClosed_ && isAnnounced) state_ = State::Whole;
  if (state_ != State::Whole) state_ = State::Malformed;
}

std::size_t HttpReplyReader::ReadBody(std::string_view bytes, std::string& body) {
  if (untilClosed_) {
    body += bytes;
    return bytes.size();
  }
  const auto arrived = static_cast<std::int64_t>(bytes.size());
  const std::int64_t taken = std::min(arrived, left_);
  body += bytes.substr(0, static_cast<std::size_t>(taken));
  left_ -= taken;
  if (left_ == 0) state_ = state_ == State::Chunk ? State::ChunkEnd : State::Whole;
  return static_cast<std::size_t>(taken);
}

std::size_t HttpReplyReader::ReadLine(std::string_view bytes) {
  const std::size_t taken = std::min(bytes.find('\n'), bytes.size() - 1) + 1;
  line_ += bytes.substr(0, taken);
  if (!IsAroundChunk()) headBytes_ += taken;
  if (headBytes_ > kLongestHead || (IsAroundChunk() && line_.size() > kLongestChunkSize)) {
    state_ = State::Malformed;
  } else if (line_.back() == '\n') {
    state_ = AfterLine(line_);
    line_.clear();
  }
  return taken;
}

HttpReplyReader::State HttpReplyReader::AfterLine(std::string_view line) {
  line.remove_suffix(1);
  // In the head a bare line feed ends a line too.
  const bool hasReturn = line.ends_with('\r');
  if (hasReturn) line.remove_suffix(1);
  if (IsAroundChunk() && !hasReturn) return State::Malformed;
  if (line.find_first_of(std::string_view("\r\0", 2)) != std::string_view::npos) {
    return State::Malformed;
  }
  switch (state_) {
    case State::StatusLine:
      return AfterStatusLine(line);
    case State::Head:
      return line.empty() ? AfterHead() : AfterHeader(line);
    case State::ChunkSize:
      return AfterChunkSize(line);
    case State::ChunkEnd:
      return line.empty() ? State::ChunkSize : State::Malformed;
    default:
      return line.empty() ? State::Whole : State::Trailer;
  }
}

HttpReplyReader::State HttpReplyReader::AfterStatusLine(std::string_view line) {
  // As "HTTP/1.1 200 OK"
  constexpr std::size_t kCode = 9, kReason = 12;
  if (!line.starts_with("HTTP/1.") || line.size() < kReason || !IsDigit(line[kCode - 2]) ||
      line[kCode - 1] != ' ' || (line.size() > kReason && line[kReason] != ' ')) {
    return State::Malformed;
  }
  const std::optional<std::int64_t> code = ToLength(line.substr(kCode, kReason - kCode), 10);
  if (code.value_or(0) < 100) return State::Malformed;
  isOldProtocol_ = line[kCode - 2] == '0';
  status_ = static_cast<int>(*code);
  return State::Head;
}

HttpReplyReader::State HttpReplyReader::AfterHeader(std::string_view line) {
  if (line.front() == ' ' || line.front() == '\t') {
    if (folded_ != nullptr) *folded_ += ' ' + std::string(Trimmed(line));
    return State::Head;
  }
  const std::size_t colon = line.find(':');
  const std::string_view name = line.substr(0, colon);
  if (colon == std::string_view::npos || name.empty() || name != Trimmed(name)) {
    return State::Malformed;
  }
  folded_ = SameIgnoringCase(name, "Location")            ? &location_
            : SameIgnoringCase(name, "Content-Length")    ? &announced_
            : SameIgnoringCase(name, "Transfer-Encoding") ? &coding_
                                                          : nullptr;
  if (folded_ == nullptr) return State::Head;
  if (!folded_->empty()) *folded_ += ", ";
  *folded_ += Trimmed(line.substr(colon + 1));
  // An empty one counts too: as no length, and as no coding that is known.
  if (folded_->empty() && folded_ != &location_) *folded_ = ",";
  return State::Head;
}

HttpReplyReader::State HttpReplyReader::AfterHead() {
  folded_ = nullptr;
  constexpr int kSwitchingProtocols = 101, kOk = 200, kNoContent = 204, kNotModified = 304;
  if (status_ == kSwitchingProtocols) return State::Malformed;
  if (status_ < kOk) {  // The reply proper is yet to come.
    location_.clear();
    announced_.clear();
    coding_.clear();
    return State::StatusLine;
  }
  if (status_ == kNoContent || status_ == kNotModified) return State::Whole;
  if (!coding_.empty()) {
    const bool isUnambiguous = announced_.empty() && !isOldProtocol_;
    return isUnambiguous && SameIgnoringCase(coding_, "chunked") ? State::ChunkSize
                                                                 : State::Malformed;
  }
  if (announced_.empty()) {
    untilClosed_ = true;
    return State::Body;
  }
  const std::optional<std::int64_t> length = ToAgreedLength(announced_);
  if (!length.has_value()) return State::Malformed;
  length_ = left_ = *length;
  return left_ > 0 ? State::Body : State::Whole;
}

HttpReplyReader::State HttpReplyReader::AfterChunkSize(std::string_view line) {
  // Behind the size may stand blanks and an extension.
  const std::size_t end = std::min(line.find_first_of(" \t;"), line.size());
  const std::string_view rest = Trimmed(line.substr(end));
  const std::optional<std::int64_t> size = ToLength(line.substr(0, end), 16);
  if (!size.has_value() || (!rest.empty() && rest.front() != ';')) return State::Malformed;
  left_ = *size;
  return left_ > 0 ? State::Chunk : State::Trailer;
}

}  // namespace peakwright
