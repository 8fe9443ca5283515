// The program as it is started, and its options.

#include "tests/support/program.h"
#include "tests/app/controller_fixture.h"
#include "tests/support/picture_builder.h"
#include "tests/support/session_bus.h"

#include <QDBusConnectionInterface>
#include <QImage>
#include <QProcess>

#include <filesystem>
#include <memory>
#include <utility>

using namespace pinorama;

namespace {
// A session bus before the toolkit connects to one.
class Session : public test::Toolkit {
public:
    void SetUp() override
    {
        runtimeFolder_ = std::make_unique<test::TemporaryFolder>();
        qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(runtimeFolder_->path()));
        bus_ = std::make_unique<test::SessionBus>();
        test::Toolkit::SetUp();
    }
    void TearDown() override
    {
        test::Toolkit::TearDown();
        bus_.reset();
        runtimeFolder_.reset();
    }

private:
    std::unique_ptr<test::TemporaryFolder> runtimeFolder_;
    std::unique_ptr<test::SessionBus> bus_;
};
const auto* const session = testing::AddGlobalTestEnvironment(new Session);

// The toolkit complains of a locale that the system does not have, and this one every system has.
const std::pair<std::string, std::string> kSystemLocale = {"LC_ALL", "C.UTF-8"};

test::ProgramResult run(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), PINORAMA_PROGRAM);
    return test::runProgram({.command = arguments, .variables = {kSystemLocale}});
}
}  // namespace

TEST(program, showNeedsNoDisplayAndStartsNothing)
{
    const test::ScopedVariable noDisplay("QT_QPA_PLATFORM", nullptr);
    const test::ProgramResult result = run({"--show", "/a.jpg"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out + result.err, "");
}

TEST(program, helpAndVersionNeedNoDisplay)
{
    const test::ScopedVariable noDisplay("QT_QPA_PLATFORM", nullptr);
    const test::ProgramResult help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.out.substr(0, 16), "usage: pinorama ");
    const test::ProgramResult version = run({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, "pinorama " PINORAMA_VERSION "\n");
}

TEST(program, wrongUsageIsStatus2)
{
    const test::ProgramResult result = run({"--bogus"});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_TRUE(result.err.starts_with("pinorama: unknown option '--bogus'\nusage: pinorama "))
        << result.err;
}

TEST(program, withoutItsReaderItSaysSoAndShowsTheGeneralFacts)
{
    const test::ScopedVariable reader("PINORAMA_READER", "/nowhere/pinorama-reader");
    const test::TemporaryFolder folder;
    const test::ProgramResult result = run({"--print-and-save", folder.file("window.png"),
                                            PINORAMA_SAMPLES "/Westernmost evening.jpg"});
    EXPECT_EQ(result.status, 0) << result.err;
    for (const char* line : {"Name: Westernmost evening.jpg\n",
                             "\nPreview: Pictures cannot be read: ", "\nCoordinate: \n",
                             "\nShow in Globe: disabled\n"}) {
        EXPECT_NE(result.out.find(line), std::string::npos) << line << result.out;
    }
    EXPECT_EQ(result.out.find("Size: n.a."), std::string::npos);
}

TEST(program, printsWhatTheWindowShowsAndSavesItsPicture)
{
    const test::TemporaryFolder folder;
    const test::ProgramResult result =
        run({"--print-and-save", folder.file("window.png"), "/missing.jpg",
             PINORAMA_SAMPLES "/Westernmost evening.jpg"});
    EXPECT_EQ(result.status, 0) << result.err;
    for (const char* line : {"Name: Westernmost evening.jpg\n", "\nPlace: Near Azoia, Portugal\n",
                             "\nCoordinate: N 38\xC2\xB0 46' 49.4\"   W 9\xC2\xB0 29' 56.0\"\n",
                             "\nAltitude: 140 m\n", "\nDirection: 271.3\n", "\nCity: Colares\n",
                             "\nCaption: Cabo da Roca, where the land ends and the sea begins.\n",
                             "\nPreview: shown\n", "\nMarker: shown\n",
                             "\nShow in Globe: enabled\n", "\nFollow the selection: on\n"}) {
        EXPECT_NE(result.out.find(line), std::string::npos) << line << "in\n" << result.out;
    }
    const QImage picture(QString::fromStdString(folder.file("window.png")));
    EXPECT_GT(picture.width(), 300);
}

TEST(program, saysThatAnImageFindsNoRoomUnderALimitOnTheSizeOfFiles)
{
    const test::TemporaryFolder folder;
    // Qt's PNG writer never frees a row of the image after a failed write.
    const test::ProgramResult result = test::runProgram(
        {.command = {"/bin/sh", "-c", "ulimit -f 1; exec \"$0\" \"$@\"", PINORAMA_PROGRAM,
                     "--print-and-save", folder.file("window.png"),
                     PINORAMA_SAMPLES "/Westernmost evening.jpg"},
         .variables = {kSystemLocale, {"ASAN_OPTIONS", "detect_leaks=0"}}});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.out.find("\nPreview: shown\n"), std::string::npos) << result.out;
    EXPECT_NE(result.err.find("window.png: the image cannot be saved"), std::string::npos)
        << result.err;
}

TEST(program, takesArgumentsOfAnySize)
{
    const test::TemporaryFolder folder;
    const std::string sample = PINORAMA_SAMPLES "/Westernmost evening.jpg";
    std::vector<std::string> many = {"--print-and-save", folder.file("window.png")};
    many.resize(10'000, "/missing.jpg");
    many.push_back(sample);
    EXPECT_NE(run(many).out.find("Name: Westernmost evening.jpg\n"), std::string::npos);

    const std::string large(100'000, 'x');  // no argument may be longer than 128 KiB
    for (const std::vector<std::string>& arguments : {std::vector{"/" + large + ".jpg"},
                                                      {large},
                                                      {"file:///" + large},
                                                      {"--service-text", large},
                                                      {"--service-text", "\xff\xfe" + large},
                                                      {std::string("\xff\xfe.jpg")},
                                                      {"%s%n%99999d"}}) {
        std::vector<std::string> all = {"--print-and-save", folder.file("window.png")};
        all.insert(all.end(), arguments.begin(), arguments.end());
        const test::ProgramResult result = run(all);
        EXPECT_EQ(result.status, 0) << arguments.back().substr(0, 40);
        EXPECT_NE(result.out.find("Size: n.a.\n"), std::string::npos);
    }
    EXPECT_EQ(run({"--" + large}).status, 2);
    EXPECT_EQ(run({"--action", large}).status, 2);
}

TEST(program, aPictureOfTheWindowThatCannotBeWrittenIsStatus1)
{
    const test::ProgramResult result = run({"--print-and-save", "/missing/window.png"});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.err.ends_with("pinorama: /missing/window.png: the image cannot be saved\n"))
        << result.err;
}

TEST(program, letsNoTextControlTheTerminal)
{
    const test::TemporaryFolder folder;
    const std::string caption = "\x1b[31m\u009b2J\x7f";
    const std::string picture =
        folder.write("\x1b[1m\u202egpj.jpg",
                     test::pictureWithGps(
                         {.lat = 1, .latRef = "N", .lon = 1, .lonRef = "E", .caption = caption}));
    for (const std::string& path : {picture, picture + "missing\x9b.jpg"}) {
        const test::ProgramResult result =
            run({"--print-and-save", folder.file("window.png"), path});
        for (const std::string& printed : {result.out, result.err}) {
            for (const char* control : {"\x1b", "\u009b", "\x7f", "\u202e", "jpgmissing\x9b"})
                EXPECT_EQ(printed.find(control), std::string::npos) << printed;
        }
        EXPECT_NE(result.out.find("Name: \ufffd[1m\ufffdgpj.jpg"), std::string::npos) << result.out;
    }
    EXPECT_EQ(run({"--\x1b[31m"}).err.find('\x1b'), std::string::npos);
}

TEST(program, saysThatAFileIsMissingAndShowsWhatIsKnownOfIt)
{
    const test::TemporaryFolder folder;
    const std::string picture = folder.file("window.png");
    const std::string missing = folder.file("missing.jpg");
    const test::ProgramResult result = run({"--print-and-save", picture, missing});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.err.find("pinorama: " + missing + ": No such file or directory\n"),
              std::string::npos)
        << result.err;
    EXPECT_NE(result.out.find("Name: missing.jpg\n"), std::string::npos);
    EXPECT_EQ(run({"--print-and-save", picture, PINORAMA_SAMPLES}).err.find("pinorama: "),
              std::string::npos);
}

TEST(program, everySampleHasALocationAndAPreview)
{
    int count = 0;
    for (const auto& sample : std::filesystem::directory_iterator(PINORAMA_SAMPLES)) {
        SCOPED_TRACE(sample.path().string());
        const test::TemporaryFolder folder;
        const test::ProgramResult result =
            run({"--print-and-save", folder.file("window.png"), sample.path().string()});
        for (const char* line : {"\nMarker: shown\n", "\nPreview: shown\n"})
            EXPECT_NE(result.out.find(line), std::string::npos) << line;
        for (const char* emptyLine : {"Altitude: \n", "Direction: \n", "City: \n", "Caption: \n"})
            EXPECT_EQ(result.out.find(emptyLine), std::string::npos) << emptyLine;
        ++count;
    }
    EXPECT_GE(count, 2);
}

TEST(program, quitsWhenItIsAskedToAndGoesOnWithoutAWindow)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) GTEST_SKIP() << "no session bus can be started";
    const auto isRunning = [&] {
        return bus.interface()
            ->isServiceRegistered(QStringLiteral("org.pinorama.Pinorama"))
            .value();
    };
    QProcess program;
    program.start(QStringLiteral(PINORAMA_PROGRAM), {QStringLiteral("--service")});
    ASSERT_TRUE(test::waitUntil(isRunning));
    EXPECT_EQ(run({"--action", "quit"}).status, 0);
    EXPECT_TRUE(test::waitUntil([&] { return program.state() == QProcess::NotRunning; }));
    EXPECT_EQ(program.exitCode(), 0);
    program.kill();
    program.waitForFinished();
}
