#include "desktop/portal_chooser.h"

#include "tests/desktop/bus_programs.h"
#include "tests/support/event_loop.h"
#include "tests/support/fake_portal.h"

#include <gtest/gtest.h>

#include <QDBusArgument>

#include <string>
#include <vector>

// The suites are named after what they test, which they hide here.
namespace pinorama::tests {
using namespace std::chrono_literals;

class PortalChooser : public testing::Test {
protected:
    void SetUp() override
    {
        if (!program_.connection().isConnected()) GTEST_SKIP() << "no session bus can be started";
        QObject::connect(&chooser_, &pinorama::PortalChooser::chosen,
                         [this](const std::string& path) { events_.push_back(path); });
        QObject::connect(&chooser_, &pinorama::PortalChooser::unavailable,
                         [this] { events_.push_back("unavailable"); });
    }

    bool isAsked(int calls = 1)
    {
        return test::waitUntil([&] { return portal_.calls == calls; });
    }

    bool hasEvent(const std::string& event)
    {
        return test::waitUntil([&] { return !events_.empty(); }) && events_.back() == event;
    }

    test::Program program_{QStringLiteral("window")};
    test::Program desktop_{QStringLiteral("portal")};
    test::FakePortal portal_{desktop_.connection()};
    pinorama::PortalChooser chooser_{program_.connection()};
    std::vector<std::string> events_;
};

TEST_F(PortalChooser, opensTheFileThatTheUserChooses)
{
    ASSERT_TRUE(portal_.begin());
    chooser_.ask({.title = QStringLiteral("Open Picture"),
                  .parent = QStringLiteral("x11:2a"),
                  .folder = "/home/jo\xFC"});
    ASSERT_TRUE(isAsked());
    EXPECT_EQ(portal_.method, QStringLiteral("OpenFile"));
    EXPECT_EQ(portal_.title, QStringLiteral("Open Picture"));
    EXPECT_EQ(portal_.parent, QStringLiteral("x11:2a"));
    EXPECT_EQ(portal_.options[QStringLiteral("current_folder")].toByteArray(),
              QByteArray("/home/jo\xFC\0", 10));
    EXPECT_FALSE(portal_.options.contains(QStringLiteral("current_name")));
    EXPECT_FALSE(portal_.options.contains(QStringLiteral("accept_label")));
    portal_.answer(0, {QStringLiteral("file:///home/a%20%FC.jpg")});
    EXPECT_TRUE(hasEvent("/home/a \xFC.jpg"));
    portal_.answer(0, {QStringLiteral("file:///home/twice.jpg")});
    test::goOnFor(100);
    EXPECT_EQ(events_.size(), 1u);
    EXPECT_TRUE(portal_.closed.empty());
}

TEST_F(PortalChooser, savesUnderTheNameThatTheUserChooses)
{
    ASSERT_TRUE(portal_.begin());
    chooser_.ask({.title = QStringLiteral("Export"),
                  .isForSaving = true,
                  .acceptLabel = QStringLiteral("Export it"),
                  .name = QStringLiteral("a.kml"),
                  .filterName = QStringLiteral("KML files"),
                  .filterPattern = QStringLiteral("*.kml")});
    ASSERT_TRUE(isAsked());
    EXPECT_EQ(portal_.method, QStringLiteral("SaveFile"));
    EXPECT_EQ(portal_.options[QStringLiteral("current_name")], QStringLiteral("a.kml"));
    EXPECT_EQ(portal_.options[QStringLiteral("accept_label")], QStringLiteral("Export it"));
    EXPECT_FALSE(portal_.options.contains(QStringLiteral("current_folder")));
    const auto filters = portal_.options[QStringLiteral("filters")].value<QDBusArgument>();
    EXPECT_EQ(filters.currentSignature(), QStringLiteral("a(sa(us))"));
    portal_.answer(0, {QStringLiteral("file:///home/b.kml")});
    EXPECT_TRUE(hasEvent("/home/b.kml"));
}

TEST_F(PortalChooser, saysNothingWhenTheUserCancels)
{
    ASSERT_TRUE(portal_.begin());
    chooser_.ask({});
    ASSERT_TRUE(isAsked());
    portal_.answer(1);
    chooser_.ask({});
    ASSERT_TRUE(isAsked(2));
    portal_.answer(0, {QStringLiteral("https://example.org/a.jpg")});
    chooser_.ask({});
    ASSERT_TRUE(isAsked(3));
    portal_.answer(0);
    test::goOnFor(200);
    EXPECT_TRUE(events_.empty());
}

TEST_F(PortalChooser, saysWhenThereIsNoPortal)
{
    chooser_.ask({});
    EXPECT_TRUE(hasEvent("unavailable"));
    events_.clear();
    pinorama::PortalChooser without{QDBusConnection(QStringLiteral("no such bus"))};
    QObject::connect(&without, &pinorama::PortalChooser::unavailable,
                     [this] { events_.push_back("at once"); });
    without.ask({});
    EXPECT_EQ(events_, std::vector<std::string>{"at once"});
}

TEST_F(PortalChooser, saysWhenThePortalCannotShowItsDialog)
{
    ASSERT_TRUE(portal_.begin());
    chooser_.ask({});
    ASSERT_TRUE(isAsked());
    portal_.answer(2);
    EXPECT_TRUE(hasEvent("unavailable"));
}

TEST_F(PortalChooser, doesNotWaitLongForAPortalAndClosesALateDialog)
{
    ASSERT_TRUE(portal_.begin());
    portal_.isSlow = true;
    chooser_.ask({}, 200ms);
    ASSERT_TRUE(isAsked());
    EXPECT_TRUE(hasEvent("unavailable"));
    portal_.beginAtLast();
    EXPECT_TRUE(test::waitUntil([this] { return !portal_.closed.empty(); }));
    EXPECT_EQ(portal_.closed, std::vector<QString>{portal_.request});
    portal_.answer(0, {QStringLiteral("file:///home/a.jpg")});
    test::goOnFor(100);
    EXPECT_EQ(events_.size(), 1u);
}

TEST_F(PortalChooser, takesAQuestionBackForTheNextOne)
{
    ASSERT_TRUE(portal_.begin());
    chooser_.ask({});
    ASSERT_TRUE(isAsked());
    test::goOnFor(100);
    const QString first = portal_.request;
    chooser_.ask({});
    ASSERT_TRUE(isAsked(2));
    EXPECT_TRUE(test::waitUntil([this] { return !portal_.closed.empty(); }));
    EXPECT_EQ(portal_.closed, std::vector<QString>{first});
    portal_.answer(0, {QStringLiteral("file:///home/a.jpg")});
    EXPECT_TRUE(hasEvent("/home/a.jpg"));
}

TEST_F(PortalChooser, listensToTheRequestOfAnOldPortal)
{
    ASSERT_TRUE(portal_.begin());
    portal_.isOld = true;
    chooser_.ask({});
    ASSERT_TRUE(isAsked());
    test::goOnFor(100);
    portal_.answer(0, {QStringLiteral("file:///home/a.jpg")});
    EXPECT_TRUE(hasEvent("/home/a.jpg"));
}

TEST_F(PortalChooser, forgetsTheQuestionOfAPortalThatEnds)
{
    ASSERT_TRUE(portal_.begin());
    chooser_.ask({});
    ASSERT_TRUE(isAsked());
    portal_.end();
    test::goOnFor(200);
    EXPECT_TRUE(events_.empty());
    ASSERT_TRUE(portal_.begin());
    chooser_.ask({});
    ASSERT_TRUE(isAsked(2));
    portal_.answer(0, {QStringLiteral("file:///home/a.jpg")});
    EXPECT_TRUE(hasEvent("/home/a.jpg"));
}

}  // namespace pinorama::tests
