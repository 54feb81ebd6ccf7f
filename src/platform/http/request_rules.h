#pragma once

#include <QAbstractSocket>
#include <QByteArray>
#include <QSslCertificate>
#include <QString>
#include <QUrl>
#include <optional>
#include <string>
#include <vector>
#include "platform/http/http_transport.h"

namespace orvane {
/// The URL, when it is an absolute https one with a host and without a user name.
[[nodiscard]] std::optional<QUrl> httpsUrl(const std::string& text);

/// Whether the headers can be sent as they are: names are tokens, values stay on their line.
[[nodiscard]] bool canBeSent(const std::vector<HttpHeader>& headers);

/// Where an answer to a request for `url` sends the client, when the client may go there: within
/// the origin. `location` is what the answer says, relative or absolute.
[[nodiscard]] std::optional<QUrl> allowedRedirect(int status, const QUrl& url,
                                                  const QUrl& location);

/// Whether one of the certificate's alternative names stands for `host` (RFC 9525): a name, perhaps
/// with an asterisk for its first label, or an address. The subject's common name says nothing.
[[nodiscard]] bool namesHost(const QSslCertificate& certificate, const QString& host);

/// What goes over the connection: the request line, the headers that every request has (Host,
/// User-Agent, Accept-Encoding, Connection), and `headers`. No other copy of their values is made.
[[nodiscard]] QByteArray requestBytes(const QUrl& url, const std::vector<HttpHeader>& headers);

/// What an error of a socket means, before or after it was connected.
[[nodiscard]] HttpFailure socketFailure(QAbstractSocket::SocketError error, bool wasConnected);
}  // namespace orvane
