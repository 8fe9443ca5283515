#include "desktop/application_adaptors.h"

#include "base/file_uri.h"

#include <QDBusError>

#include <climits>
#include <optional>
#include <string>

namespace pinorama {
namespace {
// In UTF-16 units.
constexpr qsizetype kMaxActionNameLength = 64;
constexpr qsizetype kMaxTokenLength = 1024;
constexpr qsizetype kMaxUriLength = 3 * 4096 + 256;  // every byte of a path escaped

// Skips a token that is too long to be one.
QByteArray tokenIn(const QVariantMap& platformData)
{
    for (const char* name : {"activation-token", "desktop-startup-id"}) {
        const QString token = platformData.value(QLatin1String(name)).toString();
        if (!token.isEmpty() && token.size() <= kMaxTokenLength) return token.toLatin1();
    }
    return {};
}

std::optional<std::string> pathOf(const QString& uri)
{
    if (uri.size() > kMaxUriLength) return std::nullopt;
    return pathOfFileURI(uri.toStdString());
}

// The path itself, unless it is longer than the system allows.
std::optional<std::string> plainPath(const QString& path)
{
    std::string bytes = path.toStdString();
    if (bytes.size() >= PATH_MAX || bytes.find('\0') != std::string::npos) return std::nullopt;
    return bytes;
}
}  // namespace

void ApplicationAdaptor::Activate(const QVariantMap& platformData)
{
    Q_EMIT bus_->activated(tokenIn(platformData));
}

void ApplicationAdaptor::Open(const QStringList& uris, const QVariantMap& platformData)
{
    // The window shows one picture at a time.
    for (auto uri = uris.crbegin(); uri != uris.crend(); ++uri) {
        if (const std::optional<std::string> path = pathOf(*uri)) {
            Q_EMIT bus_->fileOpened(QByteArray::fromStdString(*path), tokenIn(platformData));
            return;
        }
    }
    Q_EMIT bus_->activated(tokenIn(platformData));
}

void ApplicationAdaptor::ActivateAction(const QString& action, const QVariantList&,
                                        const QVariantMap& platformData)
{
    if (action.size() <= kMaxActionNameLength)
        Q_EMIT bus_->actionActivated(action, tokenIn(platformData));
}

void PinoramaAdaptor::OpenText(const QString& text)
{
    Q_EMIT bus_->textSent(text.size() <= kMaxServiceTextLength ? text : QString());
}

void ReportAdaptor::Show(const QString& file, const QDBusMessage& call)
{
    const std::optional<std::string> path = file.startsWith(u'/') ? plainPath(file) : pathOf(file);
    if (path) {
        Q_EMIT bus_->fileReported(QByteArray::fromStdString(*path));
        return;
    }
    call.setDelayedReply(true);
    (void)connection_.send(call.createErrorReply(
        QDBusError::InvalidArgs, QStringLiteral("neither an absolute path nor a file URI")));
}

}  // namespace pinorama
