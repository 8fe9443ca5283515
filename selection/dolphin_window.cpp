#include "selection/dolphin_window.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QVariant>

namespace pinorama {
namespace {
constexpr int kMaxWindows = 8;  // of one process

QString serviceOf(pid_t process)
{
    return QStringLiteral("org.kde.dolphin-%1").arg(process);
}

QDBusMessage propertyCall(const QString& service, const QString& path, const char* property)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        service, path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    message.setArguments(
        {QStringLiteral("org.qtproject.Qt.QWidget"), QString::fromLatin1(property)});
    return message;
}
}  // namespace

// The windows are numbered in the order in which they were opened, with gaps for closed ones. Of
// two windows with the same title one may be active, which tells them apart.
Task<Done> DolphinWindow::find(DBusQuery& query, Accessible frame, pid_t process)
{
    service_ = serviceOf(process);
    path_.clear();
    const QDBusMessage getName = nameCall(frame);
    const auto title = textIn(co_await query.reply(getName));
    const QDBusMessage getStates = statesCall(frame);
    const bool isActive = has(statesIn(co_await query.reply(getStates)).value_or(0), State::active);

    std::vector<QString> paths;
    std::vector<QDBusMessage> calls;
    for (int number = 1; number <= kMaxWindows; number++) {
        paths.push_back(QStringLiteral("/dolphin/Dolphin_%1").arg(number));
        calls.push_back(propertyCall(service_, paths.back(), "windowTitle"));
        calls.push_back(propertyCall(service_, paths.back(), "isActiveWindow"));
    }
    const auto replies = co_await query.repliesFrom(QDBusConnection::sessionBus(), calls);
    QString found;
    int count = 0;
    for (std::size_t i = 0; i < paths.size(); i++) {
        if (!title || textIn(replies[2 * i]) != title) continue;
        if (boolIn(replies[2 * i + 1]).value_or(false) != isActive) continue;
        found = paths[i];
        count++;
    }
    if (count == 1) path_ = found;
    co_return {};
}

// Dolphin enables its action that copies the location of an item while exactly one is selected.
std::optional<QDBusMessage> DolphinWindow::isOneSelectedCall() const
{
    if (path_.isEmpty()) return std::nullopt;
    QDBusMessage message = QDBusMessage::createMethodCall(
        service_, path_, QStringLiteral("org.kde.KMainWindow"), QStringLiteral("actionIsEnabled"));
    message.setArguments({QStringLiteral("copy_location")});
    return message;
}

std::optional<bool> DolphinWindow::boolIn(const QDBusMessage& reply)
{
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
        return std::nullopt;
    QVariant value = reply.arguments().constFirst();
    if (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    if (value.userType() != QMetaType::Bool) return std::nullopt;
    return value.toBool();
}

}  // namespace pinorama
