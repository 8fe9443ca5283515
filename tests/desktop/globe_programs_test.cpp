#include "desktop/globe_programs.h"

#include "desktop/globe_texts.h"
#include "tests/desktop/bus_programs.h"
#include "tests/support/environment.h"
#include "tests/support/event_loop.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QPointF>

#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using Failure = GlobePrograms::Failure;

const GlobeView kView = {-33.9, 18.4, 271.25, 30.0, 2000.0};

class RecordingOpener final : public UrlOpener {
public:
    bool open(const QByteArray& url) override
    {
        urls.push_back(url.toStdString());
        return true;
    }
    bool isTaken(const QByteArray& /*url*/) const override { return opensKml; }
    std::vector<std::string> urls;
    bool opensKml = true;
};

// Replies on the bus as a running Marble does, and records the calls.
class FakeMarble : public QDBusVirtualObject {
public:
    explicit FakeMarble(bool isAble = true) : bus_(QDBusConnection::sessionBus()), isAble_(isAble)
    {
        bus_.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
        bus_.registerService(QStringLiteral("org.kde.marble"));
    }
    ~FakeMarble() override
    {
        bus_.unregisterService(QStringLiteral("org.kde.marble"));
        bus_.unregisterObject(QStringLiteral("/"), QDBusConnection::UnregisterTree);
    }
    QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        const std::string member = message.member().toStdString();
        if (member == "setCenter") {
            QPointF centre;
            message.arguments().at(0).value<QDBusArgument>() >> centre;
            calls.push_back("setCenter " + std::to_string(centre.x()) + " " +
                            std::to_string(centre.y()));
        } else if (member == "setZoom") {
            calls.push_back("setZoom " + std::to_string(message.arguments().at(0).toInt()));
        } else {
            calls.push_back(message.path().toStdString() + " " + member);
        }
        connection.send(isAble_ ? message.createReply()
                                : message.createErrorReply(QDBusError::NoReply, QString()));
        return true;
    }
    std::vector<std::string> calls;

private:
    QDBusConnection bus_;
    bool isAble_;
};

// The only folder of the search path, with fake programs that record their arguments.
class GlobeProgramsTest : public testing::Test {
protected:
    GlobeProgramsTest()
        : path_("PATH", folder_.path().c_str()), runtime_("XDG_RUNTIME_DIR", folder_.path().c_str())
    {
        chmod(folder_.path().c_str(), 0700);
    }
    void install(const std::string& name)
    {
        const std::string script = folder_.write(
            name, "#!/bin/sh\nfor argument in \"$@\"; do echo \"$argument\"; done > '" +
                      folder_.file("started.part") + "'\n/bin/mv '" + folder_.file("started.part") +
                      "' '" + folder_.file("started") + "'\n");
        chmod(script.c_str(), 0755);
    }
    // Shows a view and waits for what becomes of it.
    std::vector<Failure> failuresOf(GlobePrograms& programs)
    {
        std::vector<Failure> failures;
        const auto connection =
            QObject::connect(&programs, &GlobePrograms::failed,
                             [&](Failure failure) { failures.push_back(failure); });
        programs.show(kView);
        EXPECT_TRUE(test::waitUntil([&] { return !failures.empty(); }));
        QObject::disconnect(connection);
        return failures;
    }
    std::string startedWith()
    {
        test::waitUntil([this] { return access(folder_.file("started").c_str(), F_OK) == 0; });
        return test::readFile(folder_.file("started"));
    }

    test::TemporaryFolder folder_;
    test::ScopedVariable path_;
    test::ScopedVariable runtime_;
    RecordingOpener opener_;
};
}  // namespace

TEST_F(GlobeProgramsTest, startsGoogleEarthWithADocumentOfTheView)
{
    install("google-earth-pro");
    GlobePrograms programs(opener_);
    programs.show(kView);
    const std::string document = folder_.file("pinorama/fly-to.kml");
    EXPECT_EQ(startedWith(), document + "\n");
    EXPECT_EQ(test::readFile(document), makeLookAtDocument(kView));
    EXPECT_TRUE(opener_.urls.empty());
}

TEST_F(GlobeProgramsTest, writesTheQueryFileThatGoogleEarthsSettingsName)
{
    install("googleearth");
    folder_.write("drivers.ini",
                  "SETTINGS {\n ViewSync/queryFile = " + folder_.file("query.txt") + "\n}\n");
    GlobePrograms programs(opener_);
    programs.show(kView);
    EXPECT_EQ(startedWith(), "");
    EXPECT_EQ(test::readFile(folder_.file("query.txt")), makeFlyToQuery(kView));
}

TEST_F(GlobeProgramsTest, movesARunningMarble)
{
    FakeMarble marble;
    GlobePrograms programs(opener_);
    programs.show(kView);
    ASSERT_TRUE(test::waitUntil([&] { return marble.calls.size() >= 4; }));
    EXPECT_EQ(marble.calls[0], "setCenter 18.400000 -33.900000");
    EXPECT_EQ(marble.calls[1], "setZoom " + std::to_string(marbleZoom(2000.0)));
    EXPECT_EQ(marble.calls[3], "/marble/MainWindow_1 raise");
}

TEST_F(GlobeProgramsTest, startsMarbleAndIsBusyUntilItIsOnTheBus)
{
    install("marble-qt");
    GlobePrograms programs(opener_);
    std::vector<bool> busy;
    QObject::connect(&programs, &GlobePrograms::busyChanged,
                     [&](bool isBusy) { busy.push_back(isBusy); });
    programs.show(kView);
    EXPECT_EQ(startedWith(), "--latlon\n-33.900000 18.400000\n--distance\n2.000000\n");
    ASSERT_EQ(busy, std::vector<bool>{true});

    programs.show({48.1, 11.5, 0.0, 44.0, 400.0});  // the user selects another picture meanwhile
    FakeMarble marble;
    ASSERT_TRUE(test::waitUntil([&] { return marble.calls.size() >= 2; }));
    EXPECT_EQ(busy, (std::vector<bool>{true, false}));
    EXPECT_EQ(marble.calls[0], "setCenter 11.500000 48.100000");
}

TEST_F(GlobeProgramsTest, opensADocumentWithAPlacemarkIfNoGlobeIsInstalled)
{
    GlobePrograms programs(opener_);
    programs.show(kView);
    ASSERT_TRUE(test::waitUntil([&] { return !opener_.urls.empty(); }));
    ASSERT_EQ(opener_.urls.size(), 1u);
    ASSERT_TRUE(opener_.urls[0].starts_with("file://" + folder_.file("pinorama/place-")));
    EXPECT_EQ(test::readFile(opener_.urls[0].substr(strlen("file://"))),
              makePlacemarkDocument(kView));
}

TEST_F(GlobeProgramsTest, opensANewDocumentEachTimeAndKeepsOnlyTheOneBefore)
{
    std::filesystem::create_directories(folder_.file("pinorama"));
    folder_.write("pinorama/place-Earl1e.kml", "of an earlier start");
    folder_.write("pinorama/other.kml", "of somebody else");
    GlobePrograms programs(opener_);
    for (std::size_t i = 1; i <= 3; ++i) {
        programs.show({1.0 + static_cast<double>(i), 11.5, 0.0, 44.0, 400.0});
        ASSERT_TRUE(test::waitUntil([&] { return opener_.urls.size() == i; }));
    }
    const auto path = [this](std::size_t at) { return opener_.urls[at].substr(strlen("file://")); };
    EXPECT_FALSE(std::filesystem::exists(path(0)));
    EXPECT_EQ(test::readFile(path(1)), makePlacemarkDocument({3.0, 11.5, 0.0, 44.0, 400.0}));
    EXPECT_EQ(test::readFile(path(2)), makePlacemarkDocument({4.0, 11.5, 0.0, 44.0, 400.0}));
    EXPECT_FALSE(std::filesystem::exists(folder_.file("pinorama/place-Earl1e.kml")));
    EXPECT_TRUE(std::filesystem::exists(folder_.file("pinorama/other.kml")));
}

TEST_F(GlobeProgramsTest, opensNothingAndSaysSoIfTheDocumentCannotBeWritten)
{
    folder_.write("pinorama", "a file where the folder should be");
    GlobePrograms programs(opener_);
    EXPECT_EQ(failuresOf(programs), std::vector{Failure::notWritten});
    EXPECT_TRUE(opener_.urls.empty());
}

TEST_F(GlobeProgramsTest, saysThatMarbleDoesNotStart)
{
    // It may be executed, and is no program.
    chmod(folder_.write("marble", "").c_str(), 0755);
    (void)folder_.write("marble", std::string("\x7F"
                                              "ELF no program",
                                              15));
    GlobePrograms programs(opener_);
    EXPECT_EQ(failuresOf(programs), std::vector{Failure::notStarted});
}

TEST_F(GlobeProgramsTest, saysThatMarbleHasNotAppeared)
{
    install("marble-qt");  // it starts, and never comes to the bus
    GlobePrograms programs(opener_);
    programs.setPatience(std::chrono::milliseconds(0));
    std::vector<bool> busy;
    int appearances = 0;
    QObject::connect(&programs, &GlobePrograms::busyChanged,
                     [&](bool isBusy) { busy.push_back(isBusy); });
    QObject::connect(&programs, &GlobePrograms::appeared, [&] { ++appearances; });
    EXPECT_EQ(failuresOf(programs), std::vector{Failure::notAppeared});
    EXPECT_EQ(busy, (std::vector<bool>{true, false}));
    EXPECT_EQ(appearances, 0);

    FakeMarble marble;  // late, and still welcome
    ASSERT_TRUE(test::waitUntil([&] { return marble.calls.size() >= 4; }));
    EXPECT_EQ(marble.calls[0], "setCenter 18.400000 -33.900000");
    EXPECT_EQ(appearances, 1);
}

TEST_F(GlobeProgramsTest, saysThatARunningMarbleDoesNotAnswer)
{
    FakeMarble marble(false);
    GlobePrograms programs(opener_);
    EXPECT_EQ(failuresOf(programs), std::vector{Failure::notAnswering});
}

TEST_F(GlobeProgramsTest, knowsWhetherThereIsAny)
{
    const GlobePrograms programs(opener_);
    EXPECT_TRUE(programs.areInstalled()) << "a program opens KML files";
    opener_.opensKml = false;
    EXPECT_FALSE(programs.areInstalled());
    install("marble-qt");
    EXPECT_TRUE(programs.areInstalled());
    std::filesystem::remove(folder_.file("marble-qt"));
    install("googleearth");
    EXPECT_TRUE(programs.areInstalled());
}
