// Objects of other programs as the accessibility bus exposes them: the calls about their names,
// roles, states and so on, and the values in the replies. Numbers and interfaces are those of
// AT-SPI 2 (at-spi2-core, atspi-constants.h and the files in its folder xml).

#pragma once

#include <QDBusMessage>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace pinorama {

// One object: the program's unique name on the accessibility bus, and the path of the object.
struct Accessible {
    QString service;
    QString path;

    bool isNull() const;
    bool operator==(const Accessible&) const = default;
};

enum class Role : std::uint32_t {
    checkBox = 7,
    comboBox = 11,
    dialog = 16,
    directoryPane = 17,
    filler = 20,
    frame = 23,
    label = 29,
    layeredPane = 30,
    list = 31,
    listItem = 32,
    menu = 33,
    menuBar = 34,
    pageTab = 37,
    pageTabList = 38,
    panel = 39,
    popupMenu = 41,
    pushButton = 43,
    radioButton = 44,
    scrollBar = 48,
    scrollPane = 49,
    separator = 50,
    splitPane = 53,
    statusBar = 54,
    table = 55,
    tableCell = 56,
    text = 61,
    toggleButton = 62,
    toolBar = 63,
    tree = 65,
    treeTable = 66,
    viewport = 68,
    window = 69,
};

// Bits of a state set.
enum class State : unsigned {
    active = 1,
    checked = 4,
    focused = 12,
    pressed = 20,
    selected = 23,
    showing = 25,
    visible = 30,
};

using States = std::uint64_t;

constexpr bool has(States states, State state)
{
    return (states >> static_cast<unsigned>(state) & 1) != 0;
}

struct Size {
    int width = 0;
    int height = 0;

    bool operator==(const Size&) const = default;
    long area() const { return width > 0 && height > 0 ? long{width} * height : 0; }
};

// Method calls. Each goes to the program that owns the object.
QDBusMessage roleCall(const Accessible& object);
QDBusMessage statesCall(const Accessible& object);
QDBusMessage nameCall(const Accessible& object);
QDBusMessage descriptionCall(const Accessible& object);
QDBusMessage interfacesCall(const Accessible& object);
QDBusMessage attributesCall(const Accessible& object);
QDBusMessage relationsCall(const Accessible& object);
QDBusMessage childrenCall(const Accessible& object);
QDBusMessage parentCall(const Accessible& object);
QDBusMessage childCountCall(const Accessible& object);
QDBusMessage childCall(const Accessible& object, int index);
QDBusMessage sizeCall(const Accessible& object);
QDBusMessage textCall(const Accessible& object, int end);  // up to `end`; -1 for all of it
QDBusMessage objectAtPointCall(const Accessible& object, int x, int y);  // in its window
QDBusMessage extentsCall(const Accessible& object);                      // in its window
QDBusMessage selectedCountCall(const Accessible& object);
QDBusMessage selectedChildCall(const Accessible& object, int index);
QDBusMessage selectedRowCountCall(const Accessible& object);
QDBusMessage selectedRowsCall(const Accessible& object);
QDBusMessage columnCountCall(const Accessible& object);
QDBusMessage cellCall(const Accessible& object, int row, int column);

// Values in replies. Each function returns nothing for an error message and for a reply of another
// type. Lists end after `limit` entries, however long the reply is, and may contain null objects.
std::optional<std::uint32_t> numberIn(const QDBusMessage& reply);  // also of a property
std::optional<QString> textIn(const QDBusMessage& reply);          // also of a property
std::optional<States> statesIn(const QDBusMessage& reply);
std::optional<Accessible> objectIn(const QDBusMessage& reply);
std::optional<std::vector<Accessible>> objectsIn(const QDBusMessage& reply, std::size_t limit);
std::optional<std::vector<QString>> textsIn(const QDBusMessage& reply);
std::optional<std::vector<int>> numbersIn(const QDBusMessage& reply, std::size_t limit);
std::optional<Size> sizeIn(const QDBusMessage& reply);

// A rectangle in pixels.
struct Extents {
    int left = 0;
    int top = 0;
    Size size;
};
std::optional<Extents> extentsIn(const QDBusMessage& reply);

// The object that is the parent of this one in a tree, by the relations in a reply; the tree itself
// for a row on its first level. Nothing if there is no such relation.
std::optional<Accessible> treeParentIn(const QDBusMessage& reply);

// Whether the attributes in a reply contain `name` with `value`.
bool hasAttribute(const QDBusMessage& reply, const QString& name, const QString& value);

}  // namespace pinorama
