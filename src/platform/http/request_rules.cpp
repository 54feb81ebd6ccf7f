#include "platform/http/request_rules.h"
#include <QHostAddress>
#include <algorithm>
#include <array>
#include <string_view>

namespace orvane {
namespace {
constexpr int httpsPort = 443;
constexpr int firstErrorStatus = 400;
constexpr std::array followedStatuses{301, 302, 303, 307, 308};

// A user name would travel as an Authorization header that nobody asked for.
bool isPlainHttps(const QUrl& url) {
  return url.isValid() && url.scheme() == QLatin1String("https") && !url.host().isEmpty() &&
         url.userInfo().isEmpty();
}

bool isSameOrigin(const QUrl& left, const QUrl& right) {
  return left.host() == right.host() && left.port(httpsPort) == right.port(httpsPort);
}

bool isTokenCharacter(char character) {
  constexpr std::string_view marks = "!#$%&'*+-.^_`|~";
  return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') ||
         (character >= 'a' && character <= 'z') || marks.contains(character);
}

bool canBeSent(const HttpHeader& header) {
  using namespace std::string_view_literals;
  return !header.name.empty() && std::ranges::all_of(header.name, isTokenCharacter) &&
         header.value.find_first_of("\r\n\0"sv) == std::string::npos;
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

// Below these values are the failures of connections to hosts and proxies.
bool mayStandForAStatus(QNetworkReply::NetworkError error) {
  return error == QNetworkReply::ProxyAuthenticationRequiredError ||
         error > QNetworkReply::UnknownProxyError;
}

HttpFailure failureOf(QNetworkReply::NetworkError error) {
  switch (error) {
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::ProxyConnectionRefusedError:
      return HttpFailure::cannotConnectToHost;
    case QNetworkReply::RemoteHostClosedError:
    case QNetworkReply::ProxyConnectionClosedError:
      return HttpFailure::networkConnectionLost;
    case QNetworkReply::HostNotFoundError:
    case QNetworkReply::ProxyNotFoundError:
      return HttpFailure::cannotFindHost;
    case QNetworkReply::TimeoutError:
    case QNetworkReply::ProxyTimeoutError:
      return HttpFailure::timedOut;
    // What a socket reports when no route leads to the host has no value of its own.
    case QNetworkReply::UnknownNetworkError:
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
      return HttpFailure::notConnectedToInternet;
    default:
      return HttpFailure::other;
  }
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

std::optional<HttpFailure> exchangeFailure(QNetworkReply::NetworkError error, int status) {
  if (error == QNetworkReply::NoError) {
    return status == 0 ? std::optional(HttpFailure::other) : std::nullopt;
  }
  if (status >= firstErrorStatus && mayStandForAStatus(error)) { return std::nullopt; }
  return failureOf(error);
}
}  // namespace orvane
