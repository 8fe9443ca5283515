// The two interfaces of ApplicationBus as the bus sees them. They check what arrives and hand it on
// as signals of the object they belong to.

#pragma once

#include "desktop/application_bus.h"

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantMap>

namespace pinorama {

class ApplicationAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(ApplicationBus* bus) : QDBusAbstractAdaptor(bus), bus_(bus) {}

public Q_SLOTS:
    void Activate(const QVariantMap& platformData);

    // The last URI that names a local file is taken; with none the window merely comes forward.
    void Open(const QStringList& uris, const QVariantMap& platformData);

    void ActivateAction(const QString& action, const QVariantList& parameter,
                        const QVariantMap& platformData);

private:
    ApplicationBus* bus_;
};

class OwnAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.pinorama.Pinorama1")

public:
    explicit OwnAdaptor(ApplicationBus* bus) : QDBusAbstractAdaptor(bus), bus_(bus) {}

public Q_SLOTS:
    // A text of more than kLongestServiceText units counts as empty.
    void OpenText(const QString& text);

private:
    ApplicationBus* bus_;
};

}  // namespace pinorama
