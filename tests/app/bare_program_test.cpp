// The program where much of what a desktop offers is not there: it does with what is left, and says
// little about the rest.

#include "tests/support/environment.h"
#include "tests/support/program.h"
#include "tests/support/session_bus.h"
#include "tests/support/toolkit.h"

#include <gtest/gtest.h>

#include <QProcess>

#include <chrono>
#include <filesystem>
#include <memory>

#include <sys/stat.h>
#include <unistd.h>

namespace {
namespace fs = std::filesystem;
using Variables = std::vector<std::pair<std::string, std::string>>;

constexpr char kSample[] = PINORAMA_SAMPLES "/Westernmost evening.jpg";
constexpr std::size_t kFewWords = 1000;           // bytes on standard error
constexpr char kNowhere[] = "/proc/nonexistent";  // where nobody can make anything
const std::string kNoBus = "unix:path=/proc/nonexistent/bus";

const Variables kNothingAtAll = {{"DBUS_SESSION_BUS_ADDRESS", kNoBus},
                                 {"AT_SPI_BUS_ADDRESS", kNoBus},
                                 {"XDG_RUNTIME_DIR", kNowhere},
                                 {"XDG_DATA_DIRS", kNowhere},
                                 {"XDG_CONFIG_DIRS", kNowhere},
                                 {"HOME", kNowhere},
                                 {"TMPDIR", kNowhere},
                                 {"PATH", ""},
                                 {"LC_ALL", ""},
                                 {"LANG", ""},
                                 {"TZ", "Nowhere/At all"}};

// Shows the sample in a window that prints what it shows.
test::ProgramResult showSample(const Variables& variables, const std::string& picture,
                               bool asNobody = false)
{
    return test::runProgram({.command = {PINORAMA_PROGRAM, "--print-and-save", picture, kSample},
                             .variables = variables,
                             .asNobody = asNobody,
                             .seconds = 30});
}

void expectSample(const test::ProgramResult& result)
{
    EXPECT_EQ(result.status, 0) << result.err;
    for (const char* line : {"Name: Westernmost evening.jpg\n", "\nPreview: shown\n",
                             "\nAltitude: 140 m\n", "\nCity: Colares\n", "\nMarker: shown\n"}) {
        EXPECT_NE(result.out.find(line), std::string::npos) << line << "in\n" << result.out;
    }
    EXPECT_LT(result.err.size(), kFewWords) << result.err;
}

// The program, left running with its window open.
class RunningWindow {
public:
    explicit RunningWindow(const Variables& variables)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const auto& [name, value] : variables) {
            environment.insert(QString::fromStdString(name), QString::fromStdString(value));
        }
        process_.setProcessEnvironment(environment);
        process_.start(QStringLiteral(PINORAMA_PROGRAM), {QLatin1String(kSample)});
    }
    ~RunningWindow()
    {
        process_.kill();
        process_.waitForFinished(test::kPatience);
    }

    // Lets some ticks of its timer go by.
    void goOn()
    {
        test::goOnFor(2000);
        words_ += process_.readAllStandardError();
    }

    bool isRunning() const { return process_.state() == QProcess::Running; }
    const QByteArray& words() const { return words_; }

    // True when it ends as it is told to.
    bool ends()
    {
        process_.terminate();
        return process_.waitForFinished(test::kPatience);
    }

private:
    QProcess process_;
    QByteArray words_;
};
}  // namespace

TEST(bareProgram, showsAPictureWithWhatIsLeft)
{
    const struct {
        const char* name;
        Variables variables;
    } rows[] = {
        {"no session bus", {{"DBUS_SESSION_BUS_ADDRESS", kNoBus}}},
        {"no address of a session bus",
         {{"DBUS_SESSION_BUS_ADDRESS", ""}, {"XDG_RUNTIME_DIR", kNowhere}}},
        {"an address that is none", {{"DBUS_SESSION_BUS_ADDRESS", "nonsense"}}},
        {"no accessibility bus",
         {{"AT_SPI_BUS_ADDRESS", kNoBus}, {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1"}}},
        {"no icon theme and no table of types", {{"XDG_DATA_DIRS", kNowhere}}},
        {"an icon theme that is not there",
         {{"XDG_DATA_DIRS", kNowhere}, {"QT_QPA_PLATFORMTHEME", "gtk3"}}},
        {"no home folder", {{"HOME", kNowhere}}},
        {"a home folder that is no folder", {{"HOME", "/dev/null"}}},
        {"no runtime folder", {{"XDG_RUNTIME_DIR", kNowhere}}},
        {"no temporary folder", {{"TMPDIR", kNowhere}}},
        {"an unknown locale", {{"LC_ALL", "xx_XX.UTF-8"}}},
        {"nothing at all", kNothingAtAll},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const test::TemporaryFolder folder;
        expectSample(showSample(row.variables, folder.file("window.png")));
        EXPECT_TRUE(fs::exists(folder.file("window.png")));
    }
}

TEST(bareProgram, showsAPictureWithAReadOnlyHomeFolder)
{
    const test::TemporaryFolder folder;
    fs::create_directory(folder.file("home"));
    fs::create_directory(folder.file("out"));
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(folder.file("home").c_str(), 0555), 0);
    ASSERT_EQ(chmod(folder.file("out").c_str(), 0777), 0);
    const test::ProgramResult result =
        showSample({{"HOME", folder.file("home")}, {"XDG_RUNTIME_DIR", kNowhere}},
                   folder.file("out/window.png"), true);
    ASSERT_EQ(chmod(folder.file("home").c_str(), 0755), 0);
    if (result.status == 127) GTEST_SKIP() << "the program lies where only the superuser may go";
    expectSample(result);
    EXPECT_TRUE(fs::is_empty(folder.file("home")));
}

TEST(bareProgram, goesOnQuietlyWithNothingAtAll)
{
    RunningWindow window(kNothingAtAll);
    window.goOn();
    const auto atFirst = window.words().size();
    window.goOn();
    EXPECT_TRUE(window.isRunning());
    EXPECT_LT(window.words().size(), static_cast<qsizetype>(kFewWords))
        << window.words().toStdString();
    EXPECT_EQ(window.words().size(), atFirst) << "it repeats itself";
    EXPECT_TRUE(window.ends());
}

TEST(bareProgram, goesOnQuietlyWhenTheSessionBusDies)
{
    auto bus = std::make_unique<test::SessionBus>();
    if (!bus->isRunning()) GTEST_SKIP() << "no session bus can be started";
    RunningWindow window({});
    window.goOn();
    bus.reset();
    window.goOn();
    const auto afterwards = window.words().size();
    window.goOn();
    EXPECT_TRUE(window.isRunning());
    EXPECT_LT(window.words().size(), static_cast<qsizetype>(kFewWords))
        << window.words().toStdString();
    EXPECT_EQ(window.words().size(), afterwards) << "it repeats itself";
    EXPECT_TRUE(window.ends());
}

TEST(bareProgram, saysThatThereIsNoDisplay)
{
    const Variables none = {
        {"DISPLAY", ""}, {"WAYLAND_DISPLAY", ""}, {"WAYLAND_SOCKET", ""}, {"QT_QPA_PLATFORM", ""}};
    const auto start = [&none](const std::vector<std::string>& arguments) {
        std::vector<std::string> command = {PINORAMA_PROGRAM};
        command.insert(command.end(), arguments.begin(), arguments.end());
        return test::runProgram({.command = command, .variables = none});
    };
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{}, {kSample}, {"--service"}, {"--action", "quit"}}) {
        const test::ProgramResult result = start(arguments);
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.err,
                  "pinorama: no display; pinorama-info prints the same in a terminal\n");
    }
    EXPECT_EQ(start({"--version"}).status, 0);
    EXPECT_EQ(start({"--help"}).status, 0);
    EXPECT_EQ(start({"--bogus"}).status, 2);
    // Here the toolkit is told what to draw on.
    EXPECT_EQ(start({"-platform", "offscreen", "--bogus"}).status, 2);
    EXPECT_NE(start({"-platform", "offscreen", "--bogus"}).err.find("usage: "), std::string::npos);
}
