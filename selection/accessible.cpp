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

QDBusMessage question(const Accessible& object, const char* interface, const char* method,
                      const QVariantList& arguments = {})
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        object.service, object.path, QString::fromLatin1(interface), QString::fromLatin1(method));
    if (!arguments.isEmpty()) message.setArguments(arguments);
    return message;
}

QDBusMessage propertyQuestion(const Accessible& object, const char* interface, const char* property)
{
    return question(object, "org.freedesktop.DBus.Properties", "Get",
                    {QString::fromLatin1(interface), QString::fromLatin1(property)});
}

// The first value of an answer, out of its variant when it is a property's.
QVariant firstValue(const QDBusMessage& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) return {};
    const QVariant value = answer.arguments().constFirst();
    return value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant() : value;
}

// The first value as something that is read piece by piece, when its signature is the expected one.
std::optional<QDBusArgument> structured(const QDBusMessage& answer, const char* signature)
{
    const QVariant value = firstValue(answer);
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

QDBusMessage roleQuestion(const Accessible& object)
{
    return question(object, kAccessible, "GetRole");
}

QDBusMessage statesQuestion(const Accessible& object)
{
    return question(object, kAccessible, "GetState");
}

QDBusMessage nameQuestion(const Accessible& object)
{
    return propertyQuestion(object, kAccessible, "Name");
}

QDBusMessage descriptionQuestion(const Accessible& object)
{
    return propertyQuestion(object, kAccessible, "Description");
}

QDBusMessage interfacesQuestion(const Accessible& object)
{
    return question(object, kAccessible, "GetInterfaces");
}

QDBusMessage attributesQuestion(const Accessible& object)
{
    return question(object, kAccessible, "GetAttributes");
}

QDBusMessage childrenQuestion(const Accessible& object)
{
    return question(object, kAccessible, "GetChildren");
}

QDBusMessage parentQuestion(const Accessible& object)
{
    return propertyQuestion(object, kAccessible, "Parent");
}

QDBusMessage childCountQuestion(const Accessible& object)
{
    return propertyQuestion(object, kAccessible, "ChildCount");
}

QDBusMessage childQuestion(const Accessible& object, int index)
{
    return question(object, kAccessible, "GetChildAtIndex", {index});
}

QDBusMessage sizeQuestion(const Accessible& object)
{
    return question(object, kComponent, "GetSize");
}

QDBusMessage textQuestion(const Accessible& object, int end)
{
    return question(object, "org.a11y.atspi.Text", "GetText", {0, end});
}

QDBusMessage objectAtPointQuestion(const Accessible& object, int x, int y)
{
    return question(object, kComponent, "GetAccessibleAtPoint", {x, y, kInItsWindow});
}

QDBusMessage extentsQuestion(const Accessible& object)
{
    return question(object, kComponent, "GetExtents", {kInItsWindow});
}

QDBusMessage selectedCountQuestion(const Accessible& object)
{
    return propertyQuestion(object, kSelection, "NSelectedChildren");
}

QDBusMessage selectedChildQuestion(const Accessible& object, int index)
{
    return question(object, kSelection, "GetSelectedChild", {index});
}

QDBusMessage selectedRowCountQuestion(const Accessible& object)
{
    return propertyQuestion(object, kTable, "NSelectedRows");
}

QDBusMessage selectedRowsQuestion(const Accessible& object)
{
    return question(object, kTable, "GetSelectedRows");
}

QDBusMessage columnCountQuestion(const Accessible& object)
{
    return propertyQuestion(object, kTable, "NColumns");
}

QDBusMessage cellQuestion(const Accessible& object, int row, int column)
{
    return question(object, kTable, "GetAccessibleAt", {row, column});
}

std::optional<std::uint32_t> numberIn(const QDBusMessage& answer)
{
    const QVariant value = firstValue(answer);
    if (value.userType() == QMetaType::UInt) return value.toUInt();
    if (value.userType() == QMetaType::Int && value.toInt() >= 0) return value.toUInt();
    return std::nullopt;
}

std::optional<QString> textIn(const QDBusMessage& answer)
{
    const QVariant value = firstValue(answer);
    if (value.userType() != QMetaType::QString) return std::nullopt;
    return value.toString();
}

std::optional<States> statesIn(const QDBusMessage& answer)
{
    const auto argument = structured(answer, "au");
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

std::optional<Accessible> objectIn(const QDBusMessage& answer)
{
    const auto argument = structured(answer, "(so)");
    if (!argument) return std::nullopt;
    const Accessible object = readObject(*argument);
    if (object.isNull()) return std::nullopt;
    return object;
}

std::optional<std::vector<Accessible>> objectsIn(const QDBusMessage& answer, std::size_t limit)
{
    const auto argument = structured(answer, "a(so)");
    if (!argument) return std::nullopt;
    std::vector<Accessible> objects;
    argument->beginArray();
    while (!argument->atEnd() && objects.size() < limit) {
        objects.push_back(readObject(*argument));
    }
    argument->endArray();
    return objects;
}

std::optional<std::vector<QString>> textsIn(const QDBusMessage& answer)
{
    const QVariant value = firstValue(answer);
    if (value.userType() != QMetaType::QStringList) return std::nullopt;
    const QStringList list = value.toStringList();
    return std::vector<QString>(list.begin(), list.end());
}

std::optional<std::vector<int>> numbersIn(const QDBusMessage& answer, std::size_t limit)
{
    const auto argument = structured(answer, "ai");
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

std::optional<Size> sizeIn(const QDBusMessage& answer)
{
    // Two values beside each other here, one structure of two in some programs.
    if (answer.type() == QDBusMessage::ReplyMessage && answer.signature() == QLatin1String("ii")) {
        return Size{answer.arguments().at(0).toInt(), answer.arguments().at(1).toInt()};
    }
    const auto argument = structured(answer, "(ii)");
    if (!argument) return std::nullopt;
    Size size;
    argument->beginStructure();
    *argument >> size.width >> size.height;
    argument->endStructure();
    return size;
}

std::optional<Extents> extentsIn(const QDBusMessage& answer)
{
    const auto argument = structured(answer, "(iiii)");
    if (!argument) return std::nullopt;
    Extents extents;
    argument->beginStructure();
    *argument >> extents.left >> extents.top >> extents.size.width >> extents.size.height;
    argument->endStructure();
    return extents;
}

bool hasAttribute(const QDBusMessage& answer, const QString& name, const QString& value)
{
    const auto argument = structured(answer, "a{ss}");
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
