#pragma once

#include <map>
#include <sys/socket.h>

#include <QtNetwork>
#include <gtest/gtest.h>

namespace peakwright {

/// Trickle: the body goes byte by byte, each a tenth of a second after the one before. Cut: closes
/// without a word.
enum Then { Close, Stay, Trickle, Cut };

/// A reply with this body, which announces `length` bytes.
inline QByteArray Http(const QByteArray& body, qsizetype length = -1,
                       const QByteArray& status = "200 OK") {
  const QByteArray announced = QByteArray::number(length < 0 ? body.size() : length);
  return "HTTP/1.1 " + status + "\r\nContent-Length: " + announced + "\r\n\r\n" + body;
}

inline QByteArray Redirect(const QByteArray& location) {
  return Http("<moved>", 7, "302 Found\r\nSet-Cookie: id=1\r\nLocation: " + location);
}

/// An HTTPS server on loopback, in the thread of the test, whose certificate no one has signed.
class TlsServer : public QSslServer {
 public:
  TlsServer() {
    const QTemporaryDir made;
    QFile pem(made.filePath("pem"));
    QProcess::execute(QStringLiteral("openssl"),
                      {"req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1",
                       "-nodes", "-batch", "-keyout", pem.fileName(), "-out", pem.fileName()});
    pem.open(QIODevice::ReadOnly);
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setPrivateKey(QSslKey(&pem, QSsl::Ec));
    tls.setLocalCertificateChain(QSslCertificate::fromPath(pem.fileName()));
    setSslConfiguration(tls);
    listen(QHostAddress::LocalHost);
    connect(this, &QTcpServer::pendingConnectionAvailable, [this] {
      QTcpSocket& client = *nextPendingConnection();
      connect(&client, &QTcpSocket::readyRead, [this, &client] { Serve(client); });
      connect(&client, &QTcpSocket::disconnected, this, [this] { ++ended; });
    });
  }

  std::map<QByteArray, std::pair<QByteArray, Then>> replies;  // By path.
  QByteArrayList heads;                                       // Of the requests, in order.
  int ended = 0;                                              // Connections that are closed.

 private:
  void Serve(QTcpSocket& client) {
    heads.push_back(client.readAll());
    const auto& [bytes, then] = replies[heads.back().split(' ').value(1)];
    const qsizetype head = then == Trickle ? bytes.indexOf("\r\n\r\n") + 4 : bytes.size();
    client.write(bytes.first(head));
    WriteSlowly(client, bytes.mid(head));
    if (then == Close) client.disconnectFromHost();
    if (then == Cut && client.flush())
      shutdown(static_cast<int>(client.socketDescriptor()), SHUT_RDWR);
  }

  /// One timer after the other: those that run at once may go off in another order.
  void WriteSlowly(QTcpSocket& client, const QByteArray& bytes) {
    if (bytes.isEmpty()) return;
    client.write(bytes.first(1));
    QTimer::singleShot(100, &client,
                       [this, &client, rest = bytes.mid(1)] { WriteSlowly(client, rest); });
  }
};

/// Names a proxy on this machine as the system would, once it is `found`.
class Proxies : public QNetworkProxyFactory {
 public:
  Proxies(quint16 port, QSemaphore& found) : port_(port), found_(found) {}

  QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery&) override {
    EXPECT_NE(QThread::currentThread(), qApp->thread()) << "the windows would stand still";
    found_.acquire();
    const QString host = QStringLiteral("127.0.0.1");
    return {QNetworkProxy(QNetworkProxy::HttpCachingProxy, host, 1),
            QNetworkProxy(QNetworkProxy::HttpProxy, host, port_, "me", "mine")};
  }

 private:
  quint16 port_;
  QSemaphore& found_;
};

}  // namespace peakwright
