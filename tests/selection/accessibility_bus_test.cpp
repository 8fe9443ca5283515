#include "selection/accessibility_bus.h"

#include "tests/desktop/bus_programs.h"
#include "tests/selection/stand_in_file_manager.h"
#include "tests/support/event_loop.h"

#include <gtest/gtest.h>

#include <QDBusReply>

#include <memory>

using namespace pinorama;

namespace {
using test::StandInFileManager;
using Event = AccessibilityBus::Event;

class AccessibilityBusListenTo : public testing::Test {
protected:
    void SetUp() override
    {
        if (!QDBusConnection::sessionBus().isConnected())
            GTEST_SKIP() << "no session bus can be started";
        program_ = std::make_unique<StandInFileManager>(StandInFileManager::Kind::selection, "/",
                                                        std::vector<QString>{"a.jpg"});
        QObject::connect(&bus_, &AccessibilityBus::heard,
                         [this](const QString&, const QString& path, Event event, bool isOn) {
                             heard_.push_back({path.section(u'/', -1).toInt(), event, isOn});
                         });
        ASSERT_TRUE(test::waitUntil([this] { return bus_.isReady(); }));
    }

    void listen(bool alsoToNames)
    {
        bus_.listenTo(program_->service(), alsoToNames);
        // The bus knows all wishes when it has answered a later question.
        const QDBusReply<QString> id = bus_.bus().call(QDBusMessage::createMethodCall(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId"));
        ASSERT_TRUE(id.isValid());
    }

    void tellEverything()
    {
        program_->tell(1, "StateChanged", "showing", 1);
        program_->tell(2, "StateChanged", "focused", 1);
        program_->tell(3, "PropertyChange", "accessible-name", 0);
        program_->tell(4, "PropertyChange", "accessible-value", 0);
        program_->tell(5, "BoundsChanged", "", 0);
        program_->tell(6, "StateChanged", "selected", 0);
        program_->tell(7, "TextChanged", "insert", 0);
        program_->tell(8, "ChildrenChanged", "add", 0);
        program_->tell(9, "SelectionChanged", "", 0);
    }

    struct Heard {
        int object;
        Event event;
        bool isOn;
        bool operator==(const Heard&) const = default;
    };

    AccessibilityBus bus_;
    std::unique_ptr<StandInFileManager> program_;
    std::vector<Heard> heard_;
};

TEST_F(AccessibilityBusListenTo, hearsOfSelectionsAndTheFocusOnly)
{
    listen(false);
    tellEverything();
    ASSERT_TRUE(test::waitUntil([this] { return !heard_.empty() && heard_.back().object == 9; }));
    EXPECT_EQ(heard_, (std::vector<Heard>{{2, Event::focus, true},
                                          {6, Event::selection, false},
                                          {9, Event::selection, false}}));
}

TEST_F(AccessibilityBusListenTo, hearsOfNamesWhereTheyAreAskedFor)
{
    listen(true);
    tellEverything();
    ASSERT_TRUE(test::waitUntil([this] { return !heard_.empty() && heard_.back().object == 9; }));
    EXPECT_EQ(heard_, (std::vector<Heard>{{2, Event::focus, true},
                                          {3, Event::name, false},
                                          {6, Event::selection, false},
                                          {9, Event::selection, false}}));
}

TEST_F(AccessibilityBusListenTo, hearsNothingOfOtherPrograms)
{
    const StandInFileManager listened(StandInFileManager::Kind::selection, "/", {});
    bus_.listenTo(listened.service(), true);
    tellEverything();
    program_->waitUntilTold();
    listen(false);
    program_->tell(9, "SelectionChanged", "", 0);
    ASSERT_TRUE(test::waitUntil([this] { return !heard_.empty(); }));
    EXPECT_EQ(heard_, (std::vector<Heard>{{9, Event::selection, false}}));
}
}  // namespace
