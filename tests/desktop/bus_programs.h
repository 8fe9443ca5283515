// One session bus for all tests of a test program, and other programs on it.

#pragma once

#include "tests/support/session_bus.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QString>

#include <memory>

namespace test {

// Qt caches its connection to the session bus, so one bus has to serve all tests.
class BusEnvironment : public testing::Environment {
public:
    void SetUp() override
    {
        static int argc = 1;
        static char name[] = "test";
        static char* argv[] = {name, nullptr};
        bus_ = std::make_unique<SessionBus>();
        application_ = std::make_unique<QCoreApplication>(argc, argv);
    }
    void TearDown() override
    {
        application_.reset();
        bus_.reset();
    }

private:
    std::unique_ptr<SessionBus> bus_;
    std::unique_ptr<QCoreApplication> application_;
};
inline const auto* const gBusEnvironment = testing::AddGlobalTestEnvironment(new BusEnvironment);

// Another program on the bus: a separate connection.
class Program {
public:
    explicit Program(const QString& name)
        : name_(name),
          connection_(QDBusConnection::connectToBus(
              QString::fromLocal8Bit(qgetenv("DBUS_SESSION_BUS_ADDRESS")), name))
    {
    }
    ~Program() { QDBusConnection::disconnectFromBus(name_); }
    const QDBusConnection& connection() const { return connection_; }

private:
    QString name_;
    QDBusConnection connection_;
};

}  // namespace test
