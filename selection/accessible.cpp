#include "selection/accessible.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QVariant>

namespace pinorama {
namespace {

constexpr const char* kAccessible = "org.a11y.atspi.Accessible";
constexpr const char* kComponent = "org.a11y.atspi.Component";
constexpr const char* kSelection = "org.a11y.atspi.Selection";
constexpr const char* kTable = "org.a11y.atspi.Table";
constexpr std::uint32_t kInItsWindow = 1;  // the coordinate type

QDBusMessage methodCall(const Accessible& object, const char* interface, const char* method,
                        const QVariantList& arguments = {})
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        object.service, object.path, QString::fromLatin1(interface), QString::fromLatin1(method));
    if (!arguments.isEmpty()) message.setArguments(arguments);
    return message;
}

QDBusMessage propertyCall(const Accessible& object, const char* interface, const char* property)
{
    return methodCall(object, "org.freedesktop.DBus.Properties", "Get",
                      {QString::fromLatin1(interface), QString::fromLatin1(property)});
}

// The first value of a reply; that of a property without its variant.
QVariant firstValue(const QDBusMessage& reply)
{
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) return {};
    const QVariant value = reply.arguments().constFirst();
    return value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant() : value;
}

// The first value, to be demarshalled member by member, if it has the expected signature.
std::optional<QDBusArgument> structured(const QDBusMessage& reply, const char* signature)
{
    const QVariant value = firstValue(reply);
    if (!value.canConvert<QDBusArgument>()) return std::nullopt;
    const QDBusArgument argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QLatin1String(signature)) return std::nullopt;
    return argument;
}

Accessible readObject(const QDBusArgument& argument)
{
    Accessible object;
    QDBusObjectPath path;
    argument.beginStructure();
    argument >> object.service >> path;
    argument.endStructure();
    object.path = path.path();
    return object;
}
}  // namespace

bool Accessible::isNull() const
{
    return service.isEmpty() || path.isEmpty() || path == QLatin1String("/org/a11y/atspi/null");
}

QDBusMessage roleCall(const Accessible& object)
{
    return methodCall(object, kAccessible, "GetRole");
}

QDBusMessage statesCall(const Accessible& object)
{
    return methodCall(object, kAccessible, "GetState");
}

QDBusMessage nameCall(const Accessible& object)
{
    return propertyCall(object, kAccessible, "Name");
}

QDBusMessage descriptionCall(const Accessible& object)
{
    return propertyCall(object, kAccessible, "Description");
}

QDBusMessage interfacesCall(const Accessible& object)
{
    return methodCall(object, kAccessible, "GetInterfaces");
}

QDBusMessage attributesCall(const Accessible& object)
{
    return methodCall(object, kAccessible, "GetAttributes");
}

QDBusMessage relationsCall(const Accessible& object)
{
    return methodCall(object, kAccessible, "GetRelationSet");
}

QDBusMessage childrenCall(const Accessible& object)
{
    return methodCall(object, kAccessible, "GetChildren");
}

QDBusMessage parentCall(const Accessible& object)
{
    return propertyCall(object, kAccessible, "Parent");
}

QDBusMessage childCountCall(const Accessible& object)
{
    return propertyCall(object, kAccessible, "ChildCount");
}

QDBusMessage childCall(const Accessible& object, int index)
{
    return methodCall(object, kAccessible, "GetChildAtIndex", {index});
}

QDBusMessage sizeCall(const Accessible& object)
{
    return methodCall(object, kComponent, "GetSize");
}

QDBusMessage textCall(const Accessible& object, int end)
{
    return methodCall(object, "org.a11y.atspi.Text", "GetText", {0, end});
}

QDBusMessage objectAtPointCall(const Accessible& object, int x, int y)
{
    return methodCall(object, kComponent, "GetAccessibleAtPoint", {x, y, kInItsWindow});
}

QDBusMessage extentsCall(const Accessible& object)
{
    return methodCall(object, kComponent, "GetExtents", {kInItsWindow});
}

QDBusMessage selectedCountCall(const Accessible& object)
{
    return propertyCall(object, kSelection, "NSelectedChildren");
}

QDBusMessage selectedChildCall(const Accessible& object, int index)
{
    return methodCall(object, kSelection, "GetSelectedChild", {index});
}

QDBusMessage selectedRowCountCall(const Accessible& object)
{
    return propertyCall(object, kTable, "NSelectedRows");
}

QDBusMessage selectedRowsCall(const Accessible& object)
{
    return methodCall(object, kTable, "GetSelectedRows");
}

QDBusMessage columnCountCall(const Accessible& object)
{
    return propertyCall(object, kTable, "NColumns");
}

QDBusMessage cellCall(const Accessible& object, int row, int column)
{
    return methodCall(object, kTable, "GetAccessibleAt", {row, column});
}

std::optional<std::uint32_t> numberIn(const QDBusMessage& reply)
{
    const QVariant value = firstValue(reply);
    if (value.userType() == QMetaType::UInt) return value.toUInt();
    if (value.userType() == QMetaType::Int && value.toInt() >= 0) return value.toUInt();
    return std::nullopt;
}

std::optional<QString> textIn(const QDBusMessage& reply)
{
    const QVariant value = firstValue(reply);
    if (value.userType() != QMetaType::QString) return std::nullopt;
    return value.toString();
}

std::optional<States> statesIn(const QDBusMessage& reply)
{
    const auto argument = structured(reply, "au");
    if (!argument) return std::nullopt;
    States states = 0;
    argument->beginArray();
    for (unsigned shift = 0; !argument->atEnd() && shift < 64; shift += 32) {
        std::uint32_t word = 0;
        *argument >> word;
        states |= States{word} << shift;
    }
    argument->endArray();
    return states;
}

std::optional<Accessible> objectIn(const QDBusMessage& reply)
{
    const auto argument = structured(reply, "(so)");
    if (!argument) return std::nullopt;
    const Accessible object = readObject(*argument);
    if (object.isNull()) return std::nullopt;
    return object;
}

std::optional<std::vector<Accessible>> objectsIn(const QDBusMessage& reply, std::size_t limit)
{
    const auto argument = structured(reply, "a(so)");
    if (!argument) return std::nullopt;
    std::vector<Accessible> objects;
    argument->beginArray();
    while (!argument->atEnd() && objects.size() < limit) {
        objects.push_back(readObject(*argument));
    }
    argument->endArray();
    return objects;
}

std::optional<std::vector<QString>> textsIn(const QDBusMessage& reply)
{
    const QVariant value = firstValue(reply);
    if (value.userType() != QMetaType::QStringList) return std::nullopt;
    const QStringList list = value.toStringList();
    return std::vector<QString>(list.begin(), list.end());
}

std::optional<std::vector<int>> numbersIn(const QDBusMessage& reply, std::size_t limit)
{
    const auto argument = structured(reply, "ai");
    if (!argument) return std::nullopt;
    std::vector<int> numbers;
    argument->beginArray();
    while (!argument->atEnd() && numbers.size() < limit) {
        int number = 0;
        *argument >> number;
        numbers.push_back(number);
    }
    argument->endArray();
    return numbers;
}

std::optional<Size> sizeIn(const QDBusMessage& reply)
{
    // AT-SPI specifies two separate values; some programs reply with one structure of two.
    if (reply.type() == QDBusMessage::ReplyMessage && reply.signature() == QLatin1String("ii")) {
        return Size{reply.arguments().at(0).toInt(), reply.arguments().at(1).toInt()};
    }
    const auto argument = structured(reply, "(ii)");
    if (!argument) return std::nullopt;
    Size size;
    argument->beginStructure();
    *argument >> size.width >> size.height;
    argument->endStructure();
    return size;
}

std::optional<Extents> extentsIn(const QDBusMessage& reply)
{
    const auto argument = structured(reply, "(iiii)");
    if (!argument) return std::nullopt;
    Extents extents;
    argument->beginStructure();
    *argument >> extents.left >> extents.top >> extents.size.width >> extents.size.height;
    argument->endStructure();
    return extents;
}

std::optional<Accessible> treeParentIn(const QDBusMessage& reply)
{
    constexpr std::uint32_t kNodeChildOf = 7;
    const auto argument = structured(reply, "a(ua(so))");
    if (!argument) return std::nullopt;
    std::optional<Accessible> parent;
    argument->beginArray();
    while (!argument->atEnd()) {
        std::uint32_t kind = 0;
        argument->beginStructure();
        *argument >> kind;
        argument->beginArray();
        while (!argument->atEnd()) {
            Accessible target;
            QDBusObjectPath path;
            argument->beginStructure();
            *argument >> target.service >> path;
            argument->endStructure();
            target.path = path.path();
            if (kind == kNodeChildOf && !parent) parent = target;
        }
        argument->endArray();
        argument->endStructure();
    }
    argument->endArray();
    return parent;
}

bool hasAttribute(const QDBusMessage& reply, const QString& name, const QString& value)
{
    const auto argument = structured(reply, "a{ss}");
    if (!argument) return false;
    bool isThere = false;
    argument->beginMap();
    while (!argument->atEnd()) {
        QString key;
        QString entry;
        argument->beginMapEntry();
        *argument >> key >> entry;
        argument->endMapEntry();
        isThere = isThere || (key == name && entry == value);
    }
    argument->endMap();
    return isThere;
}

}  // namespace pinorama
