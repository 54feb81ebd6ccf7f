#include "platform/http/request_rules.h"
#include <QHostAddress>
#include <algorithm>
#include <array>
#include <string_view>
#include "platform/http/http_syntax.h"

namespace orvane {
namespace {
constexpr int httpsPort = 443;
// Says nothing about the user, and is refused by nobody who refuses programs that he does not know.
constexpr const char* userAgent = "Mozilla/5.0";
constexpr std::array followedStatuses{301, 302, 303, 307, 308};

// A user name would travel as an Authorization header that nobody asked for.
bool isPlainHttps(const QUrl& url) {
  return url.isValid() && url.scheme() == QLatin1String("https") && !url.host().isEmpty() &&
         url.userInfo().isEmpty();
}

bool isSameOrigin(const QUrl& left, const QUrl& right) {
  return left.host() == right.host() && left.port(httpsPort) == right.port(httpsPort);
}

bool canBeSent(const HttpHeader& header) {
  using namespace std::string_view_literals;
  return isToken(header.name) && header.value.view().find_first_of("\r\n\0"sv) == std::string::npos;
}

/// Whether a certificate's name stands for the host. An asterisk stands for the whole first label,
/// and never for a top-level domain's.
bool stands(const QString& name, const QString& host) {
  if (name.compare(host, Qt::CaseInsensitive) == 0) { return true; }
  if (!name.startsWith(QStringLiteral("*."))) { return false; }
  const QStringView domain = QStringView(name).mid(1);
  const auto firstLabel = host.indexOf(u'.');
  return domain.count(u'.') > 1 && firstLabel > 0 &&
         domain.compare(QStringView(host).mid(firstLabel), Qt::CaseInsensitive) == 0;
}
}  // namespace

std::optional<QUrl> httpsUrl(const std::string& text) {
  QUrl url = QUrl::fromEncoded(QByteArray::fromStdString(text), QUrl::StrictMode);
  return isPlainHttps(url) ? std::optional(std::move(url)) : std::nullopt;
}

bool canBeSent(const std::vector<HttpHeader>& headers) {
  return std::ranges::all_of(headers, [](const HttpHeader& header) { return canBeSent(header); });
}

std::optional<QUrl> allowedRedirect(int status, const QUrl& url, const QUrl& location) {
  const bool isFollowed = std::ranges::find(followedStatuses, status) != followedStatuses.end();
  if (!isFollowed || location.isEmpty()) { return std::nullopt; }
  QUrl target = url.resolved(location);
  if (!isPlainHttps(target) || !isSameOrigin(url, target)) { return std::nullopt; }
  return target;
}

bool namesHost(const QSslCertificate& certificate, const QString& host) {
  const QHostAddress address(host);
  const auto names = certificate.subjectAlternativeNames();
  if (!address.isNull()) {
    const QStringList addresses = names.values(QSsl::IpAddressEntry);
    return std::ranges::any_of(addresses,
                               [&](const QString& name) { return QHostAddress(name) == address; });
  }
  const QStringList hosts = names.values(QSsl::DnsEntry);
  return std::ranges::any_of(hosts, [&](const QString& name) { return stands(name, host); });
}

// In one piece of memory from the beginning: what a growing array leaves behind nobody wipes.
QByteArray requestBytes(const QUrl& url, const std::vector<HttpHeader>& headers) {
  constexpr QByteArrayView between = ": ";
  constexpr QByteArrayView lineEnd = "\r\n";
  QByteArray bytes = "GET " + url.path(QUrl::FullyEncoded).toLatin1();
  if (url.path().isEmpty()) { bytes += '/'; }
  if (url.hasQuery()) { bytes += '?' + url.query(QUrl::FullyEncoded).toLatin1(); }
  bytes += " HTTP/1.1\r\nHost: " + url.authority(QUrl::FullyEncoded).toLatin1() +
           "\r\nUser-Agent: " + userAgent +
           "\r\nAccept-Encoding: identity\r\nConnection: close\r\n";
  qsizetype room = bytes.size() + lineEnd.size();
  for (const HttpHeader& header : headers) {
    room += static_cast<qsizetype>(header.name.size() + header.value.view().size()) +
            between.size() + lineEnd.size();
  }
  bytes.reserve(room);
  for (const HttpHeader& header : headers) {
    bytes.append(header.name).append(between).append(header.value.view()).append(lineEnd);
  }
  return bytes.append(lineEnd);
}

HttpFailure socketFailure(QAbstractSocket::SocketError error, bool wasConnected) {
  switch (error) {
    case QAbstractSocket::ConnectionRefusedError:
    case QAbstractSocket::ProxyConnectionRefusedError:
    case QAbstractSocket::SocketAccessError:  // a firewall's, or a proxy's that does not want to
      return HttpFailure::cannotConnectToHost;
    case QAbstractSocket::RemoteHostClosedError:
    case QAbstractSocket::ProxyConnectionClosedError:
      return HttpFailure::networkConnectionLost;
    case QAbstractSocket::HostNotFoundError:
    case QAbstractSocket::ProxyNotFoundError:
      return HttpFailure::cannotFindHost;
    case QAbstractSocket::SocketTimeoutError:
    case QAbstractSocket::ProxyConnectionTimeoutError:
      return HttpFailure::timedOut;
    // No route leads to the host; one without any route for IPv6 has no value of its own.
    case QAbstractSocket::NetworkError:
    case QAbstractSocket::UnknownSocketError:
      return wasConnected ? HttpFailure::networkConnectionLost
                          : HttpFailure::notConnectedToInternet;
    default:
      return HttpFailure::other;
  }
}
}  // namespace orvane
