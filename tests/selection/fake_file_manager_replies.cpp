// What a fake file manager replies to a call.

#include "tests/selection/fake_file_manager.h"

#include "tests/selection/accessibility_messages.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

#include <algorithm>

QDBusMessage test::FakeFileManager::replyTo(const QDBusMessage& call)
{
    const int number = numberOf(call.path());
    const bool isProperty = call.member() == QLatin1String("Get");
    const QString what = memberOf(call);

    if (call.path().startsWith(QLatin1String("/dolphin/"))) {
        if (!call.path().endsWith(QLatin1String("_1")))
            return call.createErrorReply("org.freedesktop.DBus.Error.UnknownObject", "none");
        if (!isProperty) return call.createReply(true);
        const QVariant property =
            what == "windowTitle" ? QVariant(QStringLiteral("Pictures")) : QVariant(true);
        return call.createReply(QVariant::fromValue(QDBusVariant(property)));
    }
    const auto found = objects_.find(number);
    if (found == objects_.end())
        return call.createErrorReply("org.freedesktop.DBus.Error.UnknownObject", "gone");
    const FakeObject& object = found->second;
    const int first = call.arguments().value(0).toInt();
    const auto reference = [this](int which) {
        return QVariant::fromValue(Reference{service(), QDBusObjectPath(pathOf(which))});
    };
    const auto at = [&](const std::vector<int>& numbers, int place) {
        return static_cast<std::size_t>(place) < numbers.size()
                   ? reference(numbers[static_cast<std::size_t>(place)])
                   : QVariant::fromValue(
                         Reference{QString(), QDBusObjectPath("/org/a11y/atspi/null")});
    };

    QVariant value;
    if (what == "Name" || what == "Description") {
        value = object.name;
    } else if (what == "Parent") {
        value = reference(object.parent);
    } else if (what == "ChildCount") {
        value = static_cast<int>(object.children.size());
    } else if (what == "GetIndexInParent") {
        const std::vector<int>& siblings = objects_[object.parent].children;
        value = static_cast<int>(std::find(siblings.begin(), siblings.end(), number) -
                                 siblings.begin());
    } else if (what == "NSelectedChildren") {
        value = static_cast<int>(object.selected.size());
    } else if (what == "GetRole") {
        value = static_cast<uint>(object.role);
    } else if (what == "GetState") {
        value = QVariant::fromValue(
            QList<uint>{static_cast<uint>(object.states), static_cast<uint>(object.states >> 32)});
    } else if (what == "GetInterfaces") {
        value = object.interfaces;
    } else if (what == "GetAttributes") {
        value = QVariant::fromValue(Attributes());
    } else if (what == "GetText") {
        value = object.name;
    } else if (what == "GetChildren") {
        QList<Reference> children;
        for (const int child : object.children)
            children.append({service(), QDBusObjectPath(pathOf(child))});
        value = QVariant::fromValue(children);
    } else if (what == "GetChildAtIndex") {
        value = at(object.children, first);
    } else if (what == "GetSelectedChild") {
        const bool isThere = static_cast<std::size_t>(first) < object.selected.size() &&
                             !(object.hidesLater && first > 0);
        value =
            at(object.children, isThere ? object.selected[static_cast<std::size_t>(first)] : -1);
    } else if (what == "GetRelationSet") {
        constexpr uint kNodeChildOf = 7;
        QList<Relation> relations;
        if (object.treeParent >= 0)
            relations.append(
                {kNodeChildOf, {{service(), QDBusObjectPath(pathOf(object.treeParent))}}});
        value = QVariant::fromValue(relations);
    } else if (what == "OpenWindowsWithLocations") {
        value = QVariant::fromValue(windows_);
    } else if (what == "NColumns") {
        const auto row = objects_.find(kFirstItem);
        value = row == objects_.end() ? 1 : static_cast<int>(row->second.cells.size()) + 1;
    } else if (what == "NSelectedRows") {
        value = object.hidesRows ? 0 : static_cast<int>(object.selected.size());
    } else if (what == "GetSelectedRows") {
        QList<int> rows;
        if (!object.hidesRows) rows = QList<int>(object.selected.begin(), object.selected.end());
        value = QVariant::fromValue(rows);
    } else if (what == "GetAccessibleAt") {
        const int column = call.arguments().value(1).toInt();
        const int row = object.children.at(static_cast<std::size_t>(first));
        value = column == 0 ? reference(row) : at(objects_[row].cells, column - 1);
    } else if (what == "GetSize") {
        return call.createReply({object.size.width, object.size.height});
    } else {
        return call.createErrorReply("org.freedesktop.DBus.Error.UnknownMethod", what);
    }
    return call.createReply(isProperty ? QVariant::fromValue(QDBusVariant(value)) : value);
}
