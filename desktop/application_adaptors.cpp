#include "desktop/application_adaptors.h"

#include "base/file_uri.h"

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

}  // namespace pinorama
