#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <QDesktopServices>
#include <QLabel>
#include <QProgressBar>
#include <QTextBrowser>
#include <QtTest>

#include "engine/global_strings.h"
#include "runtime/appearance/appearance.h"
#include "runtime/application/toolkit_side.h"
#include "tests/support/patience.h"
#include "tests/update/tls_server.h"
#include "update/update_window.h"

namespace peakwright {
namespace {

using namespace std::chrono_literals;

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr URLConnection::Bounds kBounds{.Time = 1h, .Bytes = kMost};

class Update : public testing::Test {
 protected:
  Update() {
    QNetworkProxyFactory::setUseSystemConfiguration(false);
    qputenv("HOME", home_.filePath("new").toUtf8());
    qputenv("XDG_CONFIG_HOME", home_.path().toUtf8());
    Module1::CR = '\n';
    Module1::version = "1.70 December 28, 2021";
    Module1::appname = "Peakwright.app";
    Module1::websource = "https://127.0.0.1:" + std::to_string(server_.serverPort()) + "/";
    server_.replies["/peakwright_version.txt"] = {Http("1.71"), Close};
    QDesktopServices::setUrlHandler("file", &opener_, "setSource");
  }
  ~Update() override { QDesktopServices::unsetUrlHandler("file"); }

  void Ask(const std::string& url, std::chrono::milliseconds timeout = 60s) {
    answer_.reset();
    connection_.SendSync("GET", url, timeout, 1000,
                         [this](const auto& body) { answer_ = body.value_or("fails"); });
  }
  std::string Answer() {
    EXPECT_TRUE(WaitFor([&] { return answer_.has_value(); }));
    return answer_.value_or("");
  }

  /// Downloads over a file that says "fails", and gives what it says afterwards.
  std::string Download(const std::string& url, std::chrono::milliseconds timeout = 60s,
                       const URLConnection::Bounds& bounds = kBounds) {
    const QTemporaryDir folder;
    QFile file(folder.filePath("archive.zip"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("fails"));
    file.close();
    file.setPermissions(QFile::Permissions(0x7773));
    const QByteArray path = file.fileName().toUtf8();
    const bool takesMarks = setxattr(path, "user.xdg.origin.url", "former", 6, 0) == 0;
    std::int64_t size = 0;
    bool over = false;
    connection_.ReceivingProgressed = [&](auto&, auto received, auto, auto more) {
      size += static_cast<std::int64_t>(more.size());
      EXPECT_EQ(received, size);
      EXPECT_EQ(file.size(), 5) << "touched before its time";
    };
    connection_.Error = [&](auto&, const NetworkException& error) {
      const bool isStorage = error.Why() == NetworkException::Cause::Storage;
      reason_ = isStorage ? error.what() : "connection";
      over = true;
    };
    connection_.FileReceived = [&](auto&, auto&, int, auto&) { over = true; };
    connection_.Send("GET", url, FolderItem(file.fileName().toStdString()), timeout, bounds);
    EXPECT_TRUE(WaitFor([&] { return over; }));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const std::string content = file.readAll().toStdString();
    std::array<char, 1000> mark{};
    getxattr(path, "user.xdg.origin.url", mark.data(), mark.size());
    if (takesMarks && content != "fails") {
      EXPECT_EQ(mark.data(), url.ends_with("/5") ? Module1::websource + "body" : url);
    }
    EXPECT_EQ(file.permissions(), QFile::Permissions(content == "fails" ? 0x7773 : 0x6662));
    return content;
  }

  /// Presses "Download" with this reply to come.
  void PressDownload(const QByteArray& archive, Then then) {
    server_.replies["/Peakwright.app.zip"] = {archive, then};
    Window().PushButton2.Press();
    EXPECT_TRUE(Window().ProgressBar1.Visible() && Window().StaticText2.Visible());
  }

  /// The window, once its check has been made.
  WindowDownload& Window() const {
    WindowDownload::ShowIn({[] { return 90; }, [this] { return connected_; }});
    WindowDownload& window = WindowDownload::Instance();
    EXPECT_TRUE(WaitFor([&] { return ToolkitSide::Of(window)->isVisible(); }));
    return window;
  }
  QStringList Desktop() { return QDir(home_.filePath("new/Desktop")).entryList(QDir::Files); }

  QTemporaryDir home_;
  int argc_ = 0;
  DesktopApplication application_{argc_, nullptr};
  QTextBrowser opener_;  // Of what is opened.
  TlsServer server_;
  URLConnection connection_;
  bool connected_ = true;
  std::optional<std::string> answer_;
  std::string reason_;  // Of the last failure of a download.
};

TEST_F(Update, TransfersAWholeBodyOrFails) {
  const QByteArray chunks = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n4\r\nbody\r\n";
  const QByteArray host = "127.0.0.1:" + QByteArray::number(server_.serverPort());
  const std::string large(3 << 20, 'x'), slow = "20 bytes, one by one";
  QTcpServer bare;  // Speaks without TLS.
  bare.listen(QHostAddress::LocalHost);
  const QByteArray ok = "HTTP/1.1 200 OK\r\n", flood(110000, 'x');
  const struct {
    QByteArray path, reply;
    std::string body, file = body;  // As Answer gives one and Download the other.
    Then then = Close;
    std::chrono::milliseconds timeout = 60s;
  } kCases[] = {
      // A whole body of any status is a reply.
      {"/body", Http("body"), "body"},
      {"/no-length", ok + "\r\nbody", "body"},
      {"/chunks", chunks + "0\r\n\r\n", "body", "body", Stay},
      {"/404", Http("none", 4, "404 Not Found"), "none"},
      {"/large", Http(large.c_str()), large.substr(0, 1000), large, Stay},
      {"/slow", Http(slow.c_str()), "fails", slow, Trickle, 1500ms},
      {"/6", Redirect("/5"), "fails", "fails", Stay},
      {"/less-safe", Redirect("http://" + host + "/body"), "fails"},
      {"/cut", Http("body", 5000), "fails"},
      {"/cut-unsaid", ok + "\r\nbody", "fails", "fails", Cut},
      {"/stall", Http("body", 40), "fails", "fails", Stay, 500ms},
      // Nor is what breaks the rules of HTTP, or has a head without end.
      {"/no-head", "body", "fails"},
      {"/no-chunk", QByteArray(chunks).replace("4\r\nbody", "zz"), "fails"},
      {"/overflow", Http("", 0).replace(": 0", ": 1" + QByteArray(25, '0')), "fails"},
      {"/101", Http("body", 4, "101 Switching Protocols"), "fails"},
      {"/promises", QByteArray("HTTP/1.1 100 Continue\r\n\r\n").repeated(3000), "fails", "fails",
       Stay},
      {"/trailer", chunks + "0\r\nX: " + flood, "fails", "fails", Stay},
      {"//127.0.0.1:" + QByteArray::number(bare.serverPort()), "", "fails"},
      {"/limit", Http(large.substr(0, 1000).c_str(), 5000), large.substr(0, 1000), "fails"},
      {"//me:mine@" + host + "/5", "", "body"},
      {"/5", Redirect("/4"), "body", "body", Stay},
  };
  for (const auto& each : kCases) server_.replies[each.path] = {each.reply, each.then};
  for (const char* hop : {"1/body", "2/1", "3/2", "4/3"}) {
    server_.replies[QByteArray("/") + hop[0]] = {Redirect(hop + 1), Stay};
  }
  Ask(Module1::websource + "body");
  EXPECT_EQ(Answer(), "fails") << "not signed";
  connection_.AllowCertificateValidation(false);
  QObject::connect(&bare, &QTcpServer::newConnection,
                   [&] { bare.nextPendingConnection()->write(Http("body")); });
  for (const auto& each : kCases) {
    const std::string url =
        QUrl(Module1::websource.c_str()).resolved(QUrl(each.path)).toString().toStdString();
    Ask(url, each.timeout);
    EXPECT_TRUE(Download(url, each.timeout) == each.file) << each.path.data();
    EXPECT_EQ(Answer(), each.body) << each.path.data();
  }
  EXPECT_EQ(server_.heads.back(), "GET /body HTTP/1.1\r\nHost: " + host +
                                      "\r\nUser-Agent: Peakwright\r\nAccept: */*\r\n\r\n");
}

TEST_F(Update, KeepsADownloadWithinItsBounds) {
  const auto reason = [](std::errc why) { return std::make_error_code(why).message(); };
  const struct {
    QByteArray reply;
    URLConnection::Bounds bounds;
    std::string reason = {};
  } kCases[] = {
      {Http("body"), {1h, 4}},
      {Http("body"), {1h, 3}, reason(std::errc::file_too_large)},
      {"HTTP/1.1 200 OK\r\n\r\nbody", {1h, 3}, reason(std::errc::file_too_large)},
      {Http("body", kMost), kBounds, reason(std::errc::no_space_on_device)},
      {Http("20 bytes, one by one"), {500ms, kMost}, "connection"},
  };
  connection_.AllowCertificateValidation(false);
  for (const auto& each : kCases) {
    server_.replies["/body"] = {each.reply, each.bounds.Time < 1s ? Trickle : Close};
    reason_.clear();
    EXPECT_EQ(
        Download(Module1::websource + "body", 1s * (each.bounds.Time < 1s ? 1 : 60), each.bounds),
        each.reason.empty() ? "body" : "fails");
    EXPECT_EQ(reason_, each.reason);
  }
}

TEST_F(Update, AsksTheProxyThatTheSystemNames) {
  QTcpServer proxy;
  proxy.listen(QHostAddress::LocalHost);
  QByteArray asked;
  QObject::connect(&proxy, &QTcpServer::newConnection, [&] {
    QTcpSocket& client = *proxy.nextPendingConnection();
    QObject::connect(&client, &QTcpSocket::readyRead, [&] {
      asked = client.readAll();
      client.write(asked.contains(" Basic bWU6bWluZQ==")
                       ? "HTTP/1.1 200 Open\r\nX: " + QByteArray(110000, 'x')
                       : Http("", 0, "407 Who?\r\nProxy-Authenticate: Basic realm=\"x\""));
    });
  });
  qputenv("no_proxy", "*");  // Only the system is asked.
  QSemaphore found;
  QNetworkProxyFactory::setApplicationProxyFactory(new Proxies(proxy.serverPort(), found));
  Ask("https://far.example/body", 100ms);
  EXPECT_EQ(Answer(), "fails");
  found.release();
  QTest::qWait(50);
  EXPECT_EQ(asked, "") << "cancelled";
  found.release();
  Ask("https://far.example/body");
  EXPECT_EQ(Answer(), "fails") << "endless";
  EXPECT_TRUE(asked.startsWith("CONNECT far.example:443 ")) << asked.data();
  EXPECT_TRUE(asked.contains(" Basic bWU6bWluZQ==")) << "the name and the password";
  QNetworkProxyFactory::setApplicationProxyFactory(nullptr);
}

TEST_F(Update, ShowsTheResultOfTheCheck) {
  const std::string failure =
      "Web connection was unsuccessful.\nPlease check network or use a browser to access link.";
  const std::string problem =
      "There is a problem with the update link.\nPlease use a browser to access link.";
  const std::string running = "You are running version 1.70 December 28, 2021";
  const std::string current = running + ".\n\nThis 64 bit version of Peakwright is up to date.";
  const std::string question = ".\n" + running + ".\n\nDownload latest version to desktop?";
  const QByteArray longest(kLongestVersionFile, '2');
  const struct {
    QByteArray reply;
    std::string text;
    bool connected = true, dark = false;
  } kCases[] = {
      {Http("1.71"), failure, false},
      {"", failure, true, true},
      {Http("<html>"), problem},
      {Http("2.0 <"), problem, true, true},
      {Http(longest + "2"), problem},
      {Http(longest), "The newest version is " + longest.toStdString() + question},
      {Http("1.9"), "The newest version is 1.9" + question, true, true},
      {Http("1.70 December 28, 2021\n"),
       "The newest version is 1.70 December 28, 2021\n" + question},
      {Http("1.70 december 1"), "The newest version is 1.70 december 1" + question},
      {Http("No \xC3\xA9", 5, "404 Not Found"), "The newest version is No \xC3\xA9" + question},
      {Http(""), running + "\nwhich is newer than online .", true, true},
      {Http("1.70 April 3, 2022"), running + "\nwhich is newer than online 1.70 April 3, 2022."},
      {Http("1.70 December 28, 2021"), current},
      {Http("1.70 December 28, 2021"), current + "\nCurrently running in dark mode.", true, true},
  };
  for (const auto& each : kCases) {
    server_.replies["/peakwright_version.txt"] = {each.reply, Close};
    server_.heads.clear();
    connected_ = each.connected;
    ShowAppearance(each.dark);
    const bool offers = each.text.starts_with("The newest");
    EXPECT_EQ(Window().StaticText1.Text(), each.text);
    EXPECT_EQ(Window().PushButton2.Visible(), offers);
    EXPECT_EQ(Window().PushButton1.Caption(), offers ? "Later" : "Close");
    EXPECT_EQ(Window().EditField1.Text(), Module1::websource);
    EXPECT_EQ(Window().Left(), 100);
    const QByteArray asked = server_.heads.value(0);
    EXPECT_EQ(asked.startsWith("GET /peakwright_version.txt HTTP/1.1\r\n"), each.connected);
    const QWidget& window = *ToolkitSide::Of(Window());
    const QWidget* onReturn = ToolkitSide::Of(offers ? Window().PushButton2 : Window().PushButton1);
    EXPECT_EQ(window.focusWidget(), onReturn);
    QApplication::processEvents();
    if (offers) {
      for (int tabs = 0; tabs < 3; ++tabs) {
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        EXPECT_NE(window.focusWidget(), onReturn);
      }
      Window().PushButton1.Press();
    } else {
      QTest::keyClick(ToolkitSide::Of(Window()), Qt::Key_Return);
    }
    EXPECT_EQ(server_.heads.size(), each.connected ? 1 : 0) << "no download";
  }
  ShowAppearance(false);
}

TEST_F(Update, DownloadsAgainAfterAFailureThenOpensAndCloses) {
  QFile folders(home_.filePath("user-dirs.dirs"));  // Two slashes would make an address of a host.
  EXPECT_TRUE(folders.open(QIODevice::WriteOnly) &&
              folders.write("XDG_DESKTOP_DIR=\"/" + home_.path().toUtf8() + "/new/Desktop\"\n"));
  folders.close();
  const std::string offer = Window().StaticText1.Text();
  const mode_t mask = umask(0477);
  PressDownload(Http("arch", 7), Close);
  umask(mask);
  EXPECT_TRUE(QFile::permissions(home_.filePath("new/Desktop")).testFlag(QFile::ReadOwner));
  ASSERT_TRUE(WaitFor([&] { return !Window().ProgressBar1.Visible(); }));
  EXPECT_TRUE(Window().StaticText1.Text().starts_with("Web connection was unsuccessful."));
  EXPECT_EQ(Window().ProgressBar1.Value(), 0);
  EXPECT_EQ(Window().ProgressBar1.MaximumValue(), 100) << "not busy at once";
  EXPECT_TRUE(Desktop().isEmpty());
  const QString archive = home_.filePath("new/Desktop/Peakwright.app.zip");
  for (const char* other : {".part.KiLled", ".part.InUsed", ".part.another"}) {
    EXPECT_TRUE(QFile(archive + other).open(QIODevice::WriteOnly));
  }
  QFile inUse(archive + ".part.InUsed");
  EXPECT_TRUE(inUse.open(QIODevice::ReadOnly) && flock(inUse.handle(), LOCK_EX) == 0);
  umask(0777);
  server_.replies["/Peakwright.app.zip"] = {Http("archive"), Trickle};
  QTest::keyClick(ToolkitSide::Of(Window()), Qt::Key_Return);
  EXPECT_EQ(Window().StaticText1.Text(), offer);
  ASSERT_TRUE(WaitFor([&] { return Window().ProgressBar1.Value() > 0; }));
  Window().PushButton2.Press();
  ASSERT_TRUE(WaitFor([&] { return !opener_.source().isEmpty(); }));
  EXPECT_EQ(opener_.source(), QUrl::fromLocalFile(archive));
  umask(mask);
  EXPECT_EQ(QFile::permissions(archive) & QFile::Permissions(0x7077), QFile::Permissions(0x6000));
  EXPECT_EQ(Desktop().join(' '),
            "Peakwright.app.zip Peakwright.app.zip.part.another Peakwright.app.zip.part.InUsed");
  EXPECT_EQ(server_.heads.size(), 3) << "one check, two downloads";
  EXPECT_FALSE(Window().ProgressBar1.Visible()) << "not a new window";
}

TEST_F(Update, TellsThatTheArchiveCannotBeSaved) {
  const auto expect = [this](const std::string& reason) {
    PressDownload(Http("archive"), Stay);
    EXPECT_TRUE(WaitFor([&] { return !Window().ProgressBar1.Visible(); }));
    EXPECT_EQ(Window().StaticText1.Text(),
              "The archive could not be saved to the desktop.\nReason: " + reason + ".");
    EXPECT_TRUE(Desktop().isEmpty());
  };
  const rlimit full{3, RLIM_INFINITY}, none{RLIM_INFINITY, RLIM_INFINITY};
  Window();
  setrlimit(RLIMIT_FSIZE, &full);
  expect("File too large");
  setrlimit(RLIMIT_FSIZE, &none);
  QDir(home_.path()).mkpath("new/Desktop/Peakwright.app.zip");
  expect("Is a directory");
  QDir(home_.filePath("new/Desktop")).removeRecursively();
  EXPECT_TRUE(QFile(home_.filePath("new/Desktop")).open(QIODevice::WriteOnly));
  expect("Not a directory");
  application_.Raise([&] {  // As a handler that hasn't returned.
    WindowDownload& window = Window();
    window.PushButton2.Press();
    window.Close();
    QApplication::processEvents();
    EXPECT_TRUE(window.ProgressBar1.Visible()) << "nothing is told any more";
  });
}

TEST_F(Update, KeepsItsOwnWordsInViewWhateverTheReply) {
  const QString version = "You are running version 1.70 December 28, 2021";
  for (const QByteArray& reply : {QByteArray(kLongestVersionFile, '9'),
                                  QByteArray("2 ").repeated(500), QByteArray("9\r\n").repeated(90),
                                  QByteArray("0").repeated(90), QByteArray("0\n").repeated(90),
                                  QByteArray("9\0\b\x1b\xE2\x80\xAE\xE2\x81\xA6\xD8\x9C", 13)}) {
    server_.replies["/peakwright_version.txt"] = {Http(reply), Close};
    const std::string text = Window().StaticText1.Text();
    EXPECT_NE(text.find(reply.toStdString()), std::string::npos) << "unchanged";
    auto& label = static_cast<QLabel&>(*ToolkitSide::Of(Window().StaticText1));
    const QString shown = label.text();
    EXPECT_TRUE(shown.contains(version)) << shown.toStdString();
    EXPECT_EQ(shown.endsWith("Download latest version to desktop?"), reply[0] > '0');
    const QRect room(0, 0, label.width(), 10000);
    const QRect taken =
        label.fontMetrics().boundingRect(room, label.wordWrap() ? Qt::TextWordWrap : 0, shown);
    EXPECT_TRUE(label.rect().contains(taken)) << shown.toStdString();
    EXPECT_FALSE(shown.contains(
        QRegularExpression("[\\x00-\\x09\\x0b-\\x1f\\x{61c}\\x{2028}-\\x{2069}]|\\x{2026}[^.]")));
    EXPECT_EQ(label.accessibleName().toUtf8(), QByteArray::fromStdString(text));
    Window().PushButton1.Press();
  }
}

TEST_F(Update, ShowsProgressAndEndsItWhenClosed) {
  const QByteArray data(2000000, 'x');
  for (const std::int64_t total : {0LL, 40000000LL}) {
    PressDownload(total > 0 ? Http(data, total) : "HTTP/1.1 200 OK\r\n\r\n" + data, Stay);
    ASSERT_TRUE(WaitFor([&] { return Window().ProgressBar1.Value() == 2000000; }));
    EXPECT_EQ(Window().ProgressBar1.MaximumValue(), total);
    const auto& bar = static_cast<const QProgressBar&>(*ToolkitSide::Of(Window().ProgressBar1));
    EXPECT_EQ(bar.accessibleName(), "Download");
    EXPECT_EQ(bar.maximum(), total > 0 ? bar.value() * 20 : 0) << "0 is busy";
    Window().ProgressBar1.MaximumValue(4000000000);
    EXPECT_EQ(bar.maximum(), bar.value() * 2000);
    server_.ended = 0;
    application_.Raise([&] {  // As a menu or a dialog whose loop goes on above.
      ToolkitSide::Of(Window())->close();
      EXPECT_TRUE(WaitFor([&] { return server_.ended > 0; }));
    });
    EXPECT_TRUE(Desktop().isEmpty() && opener_.source().isEmpty());
  }
  PressDownload(Http(data, 40000000), Stay);  // The program ends during this one.
}

}  // namespace
}  // namespace peakwright
