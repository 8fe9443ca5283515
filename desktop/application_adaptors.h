// The D-Bus interfaces of ApplicationBus. They check the arguments of each call and emit the
// signal of ApplicationBus that belongs to it.

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

    // Opens the last URI that names a local file. If none does, only raises the window.
    void Open(const QStringList& uris, const QVariantMap& platformData);

    void ActivateAction(const QString& action, const QVariantList& parameter,
                        const QVariantMap& platformData);

private:
    ApplicationBus* bus_;
};

class PinoramaAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.pinorama.Pinorama1")

public:
    explicit PinoramaAdaptor(ApplicationBus* bus) : QDBusAbstractAdaptor(bus), bus_(bus) {}

public Q_SLOTS:
    // A text of more than kMaxServiceTextLength units is replaced by an empty one.
    void OpenText(const QString& text);

private:
    ApplicationBus* bus_;
};

class ReportAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.pinorama.Pinorama")

public:
    // Replies over `connection`.
    ReportAdaptor(ApplicationBus* bus, const QDBusConnection& connection)
        : QDBusAbstractAdaptor(bus), bus_(bus), connection_(connection)
    {
    }

public Q_SLOTS:
    // Accepts an absolute path and the URI of a local file; anything else gets the error
    // org.freedesktop.DBus.Error.InvalidArgs. `call` is the message itself, no argument.
    void Show(const QString& file, const QDBusMessage& call);

private:
    ApplicationBus* bus_;
    QDBusConnection connection_;
};

}  // namespace pinorama
