// Two of the program in one session. The running instance of these tests is a controller in the
// test itself, so that what arrives can be looked at.

#include "app/requests.h"
#include "base/file_uri.h"
#include "desktop/application_bus.h"
#include "tests/app/controller_fixture.h"
#include "tests/support/picture_builder.h"
#include "tests/support/program.h"

#include <QDBusConnection>
#include <QProcess>
#include <QTimer>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
// The test as the running instance of the session.
class RunningInstance : public test::ControllerTest {
protected:
    void SetUp() override
    {
        if (!QDBusConnection::sessionBus().isConnected())
            GTEST_SKIP() << "no session bus can be started";
        test::ControllerTest::SetUp();
        connectRequests(bus_, controller);
        ASSERT_EQ(bus_.claim(), ApplicationBus::Claim::granted);
    }

    // Starts a second program while this one answers; its exit status, -1 when it does not end.
    int second(const QStringList& arguments)
    {
        QProcess process;
        process.setWorkingDirectory(QString::fromStdString(folder.path()));
        process.start(QStringLiteral(PINORAMA_PROGRAM), arguments);
        test::waitUntil([&] { return process.state() == QProcess::NotRunning; });
        const bool ended =
            process.state() == QProcess::NotRunning && process.exitStatus() == QProcess::NormalExit;
        process.kill();
        process.waitForFinished();
        return ended ? process.exitCode() : -1;
    }

    ApplicationBus bus_{QDBusConnection::sessionBus()};
};

// The running instance as one that the session bus has started, with little patience.
class EndUnlessUsed : public RunningInstance {
protected:
    void SetUp() override
    {
        RunningInstance::SetUp();
        controller.myWindow->hide();
    }

    // Whether it ends by itself, after `requests` that arrive before its patience is at an end.
    bool ends(const std::function<void()>& requests)
    {
        constexpr int kStays = 5;
        endUnlessUsed(bus_, controller, std::chrono::milliseconds(20));
        requests();
        // Of two timers the one that is due first comes first, however slow the machine is.
        QTimer::singleShot(200, &controller, [] { QCoreApplication::exit(kStays); });
        return QCoreApplication::exec() != kStays;
    }
};
}  // namespace

TEST(connectRequests, looksAtTheLastOfABurstOnly)
{
    AppController controller;
    ASSERT_TRUE(controller.init());
    ApplicationBus bus{QDBusConnection(QStringLiteral("none"))};
    connectRequests(bus, controller);
    int shown = 0;
    QObject::connect(controller.fileNameField, &QLineEdit::textChanged, [&shown] { shown++; });
    for (int i = 0; i < 10'000; i++)
        Q_EMIT bus.fileOpened("/missing/" + QByteArray::number(i) + ".jpg", {});
    Q_EMIT bus.activated({});
    QCoreApplication::processEvents();
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(controller.fileNameField->text(), QStringLiteral("9999.jpg"));
    EXPECT_TRUE(controller.myWindow->isVisible());
    Q_EMIT bus.textSent(QStringLiteral("/missing/text.jpg"));
    QCoreApplication::processEvents();
    EXPECT_EQ(shown, 2);
}

TEST(connectRequests, showsAReportedFileAndLeavesTheWindowWhereItIs)
{
    AppController controller;
    ASSERT_TRUE(controller.init());
    controller.syncCheckbox->setChecked(true);
    ApplicationBus bus{QDBusConnection(QStringLiteral("none"))};
    connectRequests(bus, controller);
    for (int i = 0; i < 10'000; i++)
        Q_EMIT bus.fileReported("/missing/" + QByteArray::number(i) + ".jpg");
    QCoreApplication::processEvents();
    EXPECT_EQ(controller.fileNameField->text(), QStringLiteral("9999.jpg"));
    EXPECT_FALSE(controller.myWindow->isVisible());
    Q_EMIT bus.fileReported("/missing/reported.jpg");
    Q_EMIT bus.fileOpened("/missing/opened.jpg", {});
    QCoreApplication::processEvents();
    EXPECT_EQ(controller.fileNameField->text(), QStringLiteral("opened.jpg"));
    EXPECT_TRUE(controller.myWindow->isVisible());
    Q_EMIT bus.fileOpened("/missing/opened.jpg", {});
    Q_EMIT bus.fileReported("/missing/reported.jpg");
    QCoreApplication::processEvents();
    EXPECT_EQ(controller.fileNameField->text(), QStringLiteral("reported.jpg"));
}

TEST_F(RunningInstance, isBroughtForwardByASecondStart)
{
    EXPECT_FALSE(controller.myWindow->isVisible());
    EXPECT_EQ(second({}), 0);
    EXPECT_TRUE(controller.myWindow->isVisible());
    EXPECT_EQ(controller.lastPath, nullptr);
}

TEST_F(RunningInstance, showsTheLastFileOfASecondStart)
{
    (void)folder.write("b #%20.jpg", test::pictureWithGps({}));
    EXPECT_EQ(second({QStringLiteral("a.jpg"), QStringLiteral("b #%20.jpg")}), 0);
    EXPECT_EQ(test::utf8(controller.lastPath), folder.file("b #%20.jpg"));
    EXPECT_TRUE(controller.myWindow->isVisible());
}

TEST_F(RunningInstance, showsTheFileThatASecondStartReports)
{
    ASSERT_FALSE(controller.myWindow->isVisible());
    const std::string picture = folder.write("\xff a%20.jpg", "x");
    EXPECT_EQ(second({QStringLiteral("--show"), QStringLiteral("b.jpg")}), 0);
    EXPECT_EQ(shown(controller.fileNameField), "b.jpg");
    EXPECT_EQ(second({QStringLiteral("--show"),
                      QString::fromStdString(pinorama::fileURIOfPath(picture))}),
              0);
    EXPECT_TRUE(shown(controller.fileNameField).ends_with(" a%20.jpg"));
    EXPECT_FALSE(controller.myWindow->isVisible());
    controller.syncCheckbox->setChecked(false);
    EXPECT_EQ(second({QStringLiteral("--show"), QStringLiteral("b.jpg")}), 0);
    EXPECT_TRUE(shown(controller.fileNameField).ends_with(" a%20.jpg"));
}

TEST_F(RunningInstance, takesTheTextOfASecondStartAsItStands)
{
    EXPECT_EQ(second({QStringLiteral("--service-text"), QStringLiteral(" b%20\u00e4.jpg")}), 0);
    EXPECT_EQ(test::utf8(controller.lastPath), " b%20\xC3\xA4.jpg");
    controller.myWindow->close();
    EXPECT_EQ(second({QStringLiteral("--service-text"), QString()}), 0);
    EXPECT_EQ(test::utf8(controller.lastPath), " b%20\xC3\xA4.jpg");
    EXPECT_TRUE(controller.myWindow->isVisible());
}

TEST_F(RunningInstance, runsTheActionsOfTheDesktopEntry)
{
    EXPECT_EQ(second({QStringLiteral("--action"), QStringLiteral("home")}), 0);
    EXPECT_EQ(second({QStringLiteral("--action"), QStringLiteral("donate")}), 0);
    EXPECT_EQ(opener.addresses,
              (std::vector<std::string>{PINORAMA_HOME_URL, PINORAMA_DONATION_URL}));
    EXPECT_EQ(second({QStringLiteral("--service")}), 0);
    EXPECT_FALSE(controller.myWindow->isVisible());
}

TEST_F(RunningInstance, isAnsweredWithoutWaitingWhenItHangs)
{
    // Nobody runs the event loop of this instance while the second one waits for it.
    const test::ProgramResult result = test::runProgram(
        {.command = {PINORAMA_PROGRAM, PINORAMA_SAMPLES "/Westernmost evening.jpg"},
         .variables = {{"LC_ALL", "C.UTF-8"}},  // which every system has
         .seconds = 30});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "pinorama: the running program does not answer\n");
}

TEST_F(EndUnlessUsed, endsWhatNobodyAsksForAnything)
{
    EXPECT_TRUE(ends([] {}));
}

TEST_F(EndUnlessUsed, leavesAProgramWhoseWindowWasClosedRunning)
{
    const struct {
        const char* name;
        std::function<void()> ask;
    } rows[] = {
        {"window", [this] { Q_EMIT bus_.activated({}); }},
        {"file", [this] { Q_EMIT bus_.fileOpened("/nowhere/a.jpg", {}); }},
        {"text", [this] { Q_EMIT bus_.textSent(QStringLiteral("/nowhere/a.jpg")); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_FALSE(ends([&] {
            row.ask();
            EXPECT_TRUE(test::waitUntil([this] { return controller.myWindow->isVisible(); }));
            controller.myWindow->close();
        }));
        EXPECT_FALSE(controller.myWindow->isVisible());
    }
}

TEST_F(EndUnlessUsed, leavesAProgramWhoseWindowIsOpenRunning)
{
    EXPECT_FALSE(ends([this] { Q_EMIT bus_.activated({}); }));
    EXPECT_TRUE(controller.myWindow->isVisible());
}

TEST_F(EndUnlessUsed, endsAProgramThatWasAskedForAnActionOnly)
{
    EXPECT_TRUE(ends([this] { Q_EMIT bus_.actionActivated(QStringLiteral("home"), {}); }));
    EXPECT_EQ(opener.addresses, std::vector<std::string>{PINORAMA_HOME_URL});
}
