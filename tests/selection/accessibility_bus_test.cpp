#include "selection/accessibility_bus.h"

#include "tests/desktop/bus_programs.h"
#include "tests/selection/fake_file_manager.h"
#include "tests/support/event_loop.h"

#include <gtest/gtest.h>

#include <QDBusReply>

#include <memory>

using namespace pinorama;

namespace {
using test::FakeFileManager;
using Event = AccessibilityBus::Event;

class AccessibilityBusListenTo : public testing::Test {
protected:
    void SetUp() override
    {
        if (!QDBusConnection::sessionBus().isConnected())
            GTEST_SKIP() << "no session bus can be started";
        program_ = std::make_unique<FakeFileManager>(FakeFileManager::Kind::selection, "/",
                                                     std::vector<QString>{"a.jpg"});
        QObject::connect(&bus_, &AccessibilityBus::eventReceived,
                         [this](const QString&, const QString& path, Event event, bool isOn) {
                             received_.push_back({path.section(u'/', -1).toInt(), event, isOn});
                         });
        ASSERT_TRUE(test::waitUntil([this] { return bus_.isReady(); }));
    }

    void listen(AccessibilityBus::Further further)
    {
        bus_.listenTo(program_->service(), further);
        // When the bus has replied to a later call, it has handled the subscriptions.
        const QDBusReply<QString> id = bus_.bus().call(QDBusMessage::createMethodCall(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId"));
        ASSERT_TRUE(id.isValid());
    }

    void emitEverything()
    {
        program_->emitEvent(1, "StateChanged", "showing", 1);
        program_->emitEvent(2, "StateChanged", "focused", 1);
        program_->emitEvent(3, "PropertyChange", "accessible-name", 0);
        program_->emitEvent(4, "PropertyChange", "accessible-value", 0);
        program_->emitEvent(5, "BoundsChanged", "", 0);
        program_->emitEvent(6, "StateChanged", "selected", 0);
        program_->emitEvent(7, "TextChanged", "insert", 0);
        program_->emitEvent(8, "ChildrenChanged", "add", 0);
        program_->emitEvent(1, "StateChanged", "active", 1);
        program_->emitEvent(9, "SelectionChanged", "", 0);
    }

    struct Received {
        int object;
        Event event;
        bool isOn;
        bool operator==(const Received&) const = default;
    };

    AccessibilityBus bus_;
    std::unique_ptr<FakeFileManager> program_;
    std::vector<Received> received_;
};

TEST_F(AccessibilityBusListenTo, receivesEventsOfSelectionsAndTheFocusOnly)
{
    listen({});
    emitEverything();
    ASSERT_TRUE(
        test::waitUntil([this] { return !received_.empty() && received_.back().object == 9; }));
    EXPECT_EQ(received_, (std::vector<Received>{{2, Event::focus, true},
                                                {6, Event::selection, false},
                                                {9, Event::selection, false}}));
}

TEST_F(AccessibilityBusListenTo, receivesEventsOfNamesOnRequest)
{
    listen({.names = true});
    emitEverything();
    ASSERT_TRUE(
        test::waitUntil([this] { return !received_.empty() && received_.back().object == 9; }));
    EXPECT_EQ(received_, (std::vector<Received>{{2, Event::focus, true},
                                                {3, Event::name, false},
                                                {6, Event::selection, false},
                                                {9, Event::selection, false}}));
}

TEST_F(AccessibilityBusListenTo, receivesTheActivityOfWindowsOnRequest)
{
    listen({.activity = true});
    emitEverything();
    ASSERT_TRUE(
        test::waitUntil([this] { return !received_.empty() && received_.back().object == 9; }));
    EXPECT_EQ(received_, (std::vector<Received>{{2, Event::focus, true},
                                                {6, Event::selection, false},
                                                {1, Event::window, true},
                                                {9, Event::selection, false}}));
}

TEST_F(AccessibilityBusListenTo, receivesNoEventsOfOtherPrograms)
{
    const FakeFileManager listened(FakeFileManager::Kind::selection, "/", {});
    bus_.listenTo(listened.service(), {.names = true, .activity = true});
    emitEverything();
    program_->waitUntilSent();
    listen({});
    program_->emitEvent(9, "SelectionChanged", "", 0);
    ASSERT_TRUE(test::waitUntil([this] { return !received_.empty(); }));
    EXPECT_EQ(received_, (std::vector<Received>{{9, Event::selection, false}}));
}
}  // namespace
