#include "selection/dolphin_window.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QVariant>

namespace pinorama {
namespace {
constexpr int kMostWindows = 8;  // of one process

QString serviceOf(pid_t process)
{
    return QStringLiteral("org.kde.dolphin-%1").arg(process);
}

QDBusMessage propertyQuestion(const QString& service, const QString& path, const char* property)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        service, path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    message.setArguments(
        {QStringLiteral("org.qtproject.Qt.QWidget"), QString::fromLatin1(property)});
    return message;
}
}  // namespace

// The windows are numbered in the order of their making, with gaps where one was closed. Two
// windows with one title are told apart by the one that is active.
Task<Done> DolphinWindow::find(Inquiry& inquiry, Accessible frame, pid_t process)
{
    service_ = serviceOf(process);
    path_.clear();
    const QDBusMessage askName = nameQuestion(frame);
    const auto title = textIn(co_await inquiry.answer(askName));
    const QDBusMessage askStates = statesQuestion(frame);
    const bool isActive =
        has(statesIn(co_await inquiry.answer(askStates)).value_or(0), State::active);

    std::vector<QString> paths;
    std::vector<QDBusMessage> questions;
    for (int number = 1; number <= kMostWindows; number++) {
        paths.push_back(QStringLiteral("/dolphin/Dolphin_%1").arg(number));
        questions.push_back(propertyQuestion(service_, paths.back(), "windowTitle"));
        questions.push_back(propertyQuestion(service_, paths.back(), "isActiveWindow"));
    }
    const auto answers = co_await inquiry.answersFrom(QDBusConnection::sessionBus(), questions);
    QString found;
    int count = 0;
    for (std::size_t i = 0; i < paths.size(); i++) {
        if (!title || textIn(answers[2 * i]) != title) continue;
        if (truthIn(answers[2 * i + 1]).value_or(false) != isActive) continue;
        found = paths[i];
        count++;
    }
    if (count == 1) path_ = found;
    co_return {};
}

// Dolphin offers to copy the location of an item when exactly one is selected.
std::optional<QDBusMessage> DolphinWindow::isOneSelectedQuestion() const
{
    if (path_.isEmpty()) return std::nullopt;
    QDBusMessage message = QDBusMessage::createMethodCall(
        service_, path_, QStringLiteral("org.kde.KMainWindow"), QStringLiteral("actionIsEnabled"));
    message.setArguments({QStringLiteral("copy_location")});
    return message;
}

std::optional<bool> DolphinWindow::truthIn(const QDBusMessage& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty())
        return std::nullopt;
    QVariant value = answer.arguments().constFirst();
    if (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    if (value.userType() != QMetaType::Bool) return std::nullopt;
    return value.toBool();
}

}  // namespace pinorama
