#include "desktop/application_interfaces.h"

#include "base/file_uri.h"

#include <optional>
#include <string>

namespace pinorama {
namespace {
constexpr qsizetype kLongestActionName = 64;
constexpr qsizetype kLongestToken = 1024;
constexpr qsizetype kLongestUri = 3 * 4096 + 256;  // every byte of a path escaped

// What is too long for one counts as none.
QByteArray tokenIn(const QVariantMap& platformData)
{
    for (const char* name : {"activation-token", "desktop-startup-id"}) {
        const QString token = platformData.value(QLatin1String(name)).toString();
        if (!token.isEmpty() && token.size() <= kLongestToken) return token.toLatin1();
    }
    return {};
}

std::optional<std::string> pathOf(const QString& uri)
{
    if (uri.size() > kLongestUri) return std::nullopt;
    return pathOfFileURI(uri.toStdString());
}
}  // namespace

void ApplicationAdaptor::Activate(const QVariantMap& platformData)
{
    Q_EMIT bus_->activated(tokenIn(platformData));
}

void ApplicationAdaptor::Open(const QStringList& uris, const QVariantMap& platformData)
{
    // One picture at a time: the last that was asked for.
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
    if (action.size() <= kLongestActionName)
        Q_EMIT bus_->actionActivated(action, tokenIn(platformData));
}

void OwnAdaptor::OpenText(const QString& text)
{
    Q_EMIT bus_->textSent(text.size() <= kLongestServiceText ? text : QString());
}

}  // namespace pinorama
