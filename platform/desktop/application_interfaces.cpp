#include "platform/desktop/application_interfaces.h"

#include "platform/files/file_uri.h"

#include <optional>
#include <string>

namespace {
constexpr qsizetype kLongestActionName = 64;

QByteArray tokenIn(const QVariantMap& platformData)
{
    const QByteArray token =
        platformData.value(QStringLiteral("activation-token")).toString().toLatin1();
    if (!token.isEmpty()) return token;
    return platformData.value(QStringLiteral("desktop-startup-id")).toString().toLatin1();
}
}  // namespace

void platform::ApplicationAdaptor::Activate(const QVariantMap& platformData)
{
    Q_EMIT bus_->activated(tokenIn(platformData));
}

void platform::ApplicationAdaptor::Open(const QStringList& uris, const QVariantMap& platformData)
{
    // One picture at a time: the last that was asked for.
    for (auto uri = uris.crbegin(); uri != uris.crend(); ++uri) {
        if (const std::optional<std::string> path = pathOfFileURI(uri->toStdString())) {
            Q_EMIT bus_->fileOpened(QByteArray::fromStdString(*path), tokenIn(platformData));
            return;
        }
    }
    Q_EMIT bus_->activated(tokenIn(platformData));
}

void platform::ApplicationAdaptor::ActivateAction(const QString& action, const QVariantList&,
                                                  const QVariantMap& platformData)
{
    if (action.size() <= kLongestActionName)
        Q_EMIT bus_->actionActivated(action, tokenIn(platformData));
}

void platform::OwnAdaptor::OpenText(const QString& text)
{
    Q_EMIT bus_->textSent(text.size() <= kLongestServiceText ? text : QString());
}
