#include <string>

#include <gtest/gtest.h>

#include "runtime/transfers/http_reply_reader.h"

namespace peakwright {
namespace {

using namespace std::string_literals;

TEST(HttpReply, IsWholeByTheRulesOrMalformed) {
  const std::string ok = "HTTP/1.1 200 OK\r\n", chunked = ok + "Transfer-Encoding: chunked\r\n";
  const std::string head = ok + "Content-Length: 4\r\n\r\n";
  const std::string flood(70000, 'x');
  const struct {
    std::string reply, body;
    bool isMalformed = body.empty();  // Before the connection ends.
    bool isEndAnnounced = true;
  } kCases[] = {
      {head + "body", "body"},
      {head + "body and more", "body"},
      {head + "bod", "", false},
      {"HTTP/1.0 418 \r\n\r\nbody", "body"},
      {"HTTP/1.1 407\nX: y\ncontent-length:4\t\n\nbody", "body"},
      {ok + "Content-Length: 4, 4\r\nContent-Length: 4\r\n\r\nbody", "body"},
      {ok + "X: 1\r\n Content-Length: 9\r\nContent-Length: 00004\r\n\r\nbody", "body"},
      {"HTTP/1.1 100 Continue\r\nContent-Length: 9\r\n\r\n" + head + "body", "body"},
      {ok + "\r\nbody", "body"},
      {ok + "\r\nbody", "", false, false},
      {chunked + "\r\n3;x=y\r\nbod\r\n01 \r\ny\r\n000\r\nTrailer: x\r\n\r\n", "body"},
      {chunked + "\r\n4\r\nbody\r\n0\r\n", "", false},
      {chunked + "\r\n4\r\nbody\r\n", "", false},
      {chunked + "\r\n4\r\nbody0\r\n\r\n", ""},
      {chunked + "\r\n4\nbody\r\n0\r\n\r\n", ""},
      {chunked + "\r\n", "", false},
      {chunked + "\r\nzz\r\n\r\n", ""},
      {chunked + "\r\n\r\n0\r\n\r\n", ""},
      {chunked + "\r\n-1\r\n\r\n", ""},
      {chunked + "\r\n4 4\r\nbody\r\n0\r\n\r\n", ""},
      {chunked + "\r\n8000000000000000\r\nbody", ""},
      {chunked + "\r\n4;" + flood, ""},
      {chunked + "\r\n0\r\n" + flood, ""},
      {chunked + "Content-Length: 4\r\n\r\n4\r\nbody\r\n0\r\n\r\n", ""},
      {"HTTP/1.0 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n4\r\nbody\r\n0\r\n\r\n", ""},
      {ok + "Transfer-Encoding: gzip, chunked\r\n\r\n4\r\nbody\r\n0\r\n\r\n", ""},
      {ok + "Content-Length: 10000000000000000000000000\r\n\r\n", ""},
      {ok + "Content-Length: 4\r\nContent-Length: 5\r\n\r\nbody", ""},
      {ok + "Content-Length: -0\r\n\r\n", ""},
      {ok + "Content-Length: +4\r\n\r\nbody", ""},
      {ok + "Content-Length: 4x\r\n\r\nbody", ""},
      {ok + "Content-Length : 4\r\n\r\nbody", ""},
      {ok + "no colon\r\n\r\nbody", ""},
      {ok + "X: a\rb\r\n\r\nbody", ""},
      {ok + "X: a\0b\r\n\r\nbody"s, ""},
      {ok + flood, ""},
      {"HTTP/1.1 101 Switching Protocols\r\n\r\nbody", ""},
      {"HTTP/2 200 OK\r\n\r\nbody", ""},
      {"HTTP/1.1 20 OK\r\n\r\nbody", ""},
      {"HTTP/1.1 200OK\r\n\r\nbody", ""},
      {"HTTP/1.1 099 OK\r\n\r\nbody", ""},
      {flood, ""},
      {"", "", false},
  };
  for (const auto& each : kCases) {
    for (const std::size_t step : {std::size_t{1}, std::size_t{7}, each.reply.size() + 1}) {
      HttpReplyReader reader;
      std::string body;
      for (std::size_t at = 0; at < each.reply.size(); at += step) {
        body += reader.Read(std::string_view(each.reply).substr(at, step));
      }
      EXPECT_EQ(reader.IsMalformed(), each.isMalformed) << each.reply.substr(0, 200);
      reader.End(each.isEndAnnounced);
      EXPECT_EQ(reader.IsWhole() ? body : "", each.body) << each.reply.substr(0, 200);
    }
  }
  for (const char* status : {"204", "304"}) {
    HttpReplyReader reader;
    EXPECT_EQ(reader.Read("HTTP/1.1 "s + status + " None\r\nContent-Length: 4\r\n\r\nbody"), "");
    EXPECT_TRUE(reader.IsWhole());
  }
}

}  // namespace
}  // namespace peakwright
