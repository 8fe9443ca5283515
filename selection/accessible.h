// Objects of other programs as the accessibility bus shows them: their names, roles, states, and
// the questions that can be asked about them. The numbers and interfaces are those of AT-SPI 2
// (at-spi2-core, atspi-constants.h and the files in its folder xml).

#pragma once

#include <QDBusMessage>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace pinorama {

// One object: the program's unique name on the accessibility bus, and the object's path in it.
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

// Questions. Each goes to the program that owns the object.
QDBusMessage roleQuestion(const Accessible& object);
QDBusMessage statesQuestion(const Accessible& object);
QDBusMessage nameQuestion(const Accessible& object);
QDBusMessage descriptionQuestion(const Accessible& object);
QDBusMessage interfacesQuestion(const Accessible& object);
QDBusMessage attributesQuestion(const Accessible& object);
QDBusMessage childrenQuestion(const Accessible& object);
QDBusMessage parentQuestion(const Accessible& object);
QDBusMessage childCountQuestion(const Accessible& object);
QDBusMessage childQuestion(const Accessible& object, int index);
QDBusMessage sizeQuestion(const Accessible& object);
QDBusMessage textQuestion(const Accessible& object, int end);  // of a text; -1 for the whole
QDBusMessage objectAtPointQuestion(const Accessible& object, int x, int y);  // in its window
QDBusMessage extentsQuestion(const Accessible& object);                      // in its window
QDBusMessage selectedCountQuestion(const Accessible& object);
QDBusMessage selectedChildQuestion(const Accessible& object, int index);
QDBusMessage selectedRowCountQuestion(const Accessible& object);
QDBusMessage selectedRowsQuestion(const Accessible& object);
QDBusMessage columnCountQuestion(const Accessible& object);
QDBusMessage cellQuestion(const Accessible& object, int row, int column);

// Answers. Each gives nothing for an error message and for an answer of another form; lists end
// after `limit` entries, however long the answer is. A list may hold null objects.
std::optional<std::uint32_t> numberIn(const QDBusMessage& answer);  // also of a property
std::optional<QString> textIn(const QDBusMessage& answer);          // also of a property
std::optional<States> statesIn(const QDBusMessage& answer);
std::optional<Accessible> objectIn(const QDBusMessage& answer);
std::optional<std::vector<Accessible>> objectsIn(const QDBusMessage& answer, std::size_t limit);
std::optional<std::vector<QString>> textsIn(const QDBusMessage& answer);
std::optional<std::vector<int>> numbersIn(const QDBusMessage& answer, std::size_t limit);
std::optional<Size> sizeIn(const QDBusMessage& answer);

// A rectangle: left, top, width, height.
struct Extents {
    int left = 0;
    int top = 0;
    Size size;
};
std::optional<Extents> extentsIn(const QDBusMessage& answer);

// Whether a set of attributes holds `name` with `value`.
bool hasAttribute(const QDBusMessage& answer, const QString& name, const QString& value);

}  // namespace pinorama
