// Measures what the worst texts cost that a picture can carry: the processor time of the window's
// process from the selection until everything is painted. Prints a table in Markdown.
//
// Each picture has four IPTC texts of 65,480 bytes and a file name of nearly 255 bytes.

#include "app/app_controller.h"
#include "app/main_window.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"
#include "previews/picture_reader.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"

#include <QApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

using namespace pinorama;

namespace {
constexpr int kLooks = 5;
constexpr int kPatience = 60'000;            // milliseconds
constexpr std::size_t kTextLength = 65'480;  // bytes
constexpr std::size_t kNameLength = 240;     // bytes
constexpr std::size_t kUsualLength = 40;     // bytes

struct Row {
    const char* name;
    std::string_view piece;
};

constexpr Row kRows[] = {
    {"both directions in turn", "a\u05d0"},
    {"both directions with digits", "\u05d01a-\u0661"},
    {"nested embeddings", "\u202b\u202aa\u05d0"},
    {"isolates that never end", "\u2067a\u2066\u05d0"},
    {"one letter with combining marks", "\u0301"},
    {"letters with combining marks", "e\u0301\u0323\u0308"},
    {"one long word", "W"},
    {"blanks", " "},
    {"lines", "x\n"},
    {"a line each way", "a\n\u05d0\n"},
    {"joined emoji", "\U0001f468\u200d\U0001f469\u200d\U0001f467\u200d"},
    {"flags", "\U0001f1e9\U0001f1ea"},
    {"zero-width spaces", "a\u200b"},
    {"zero-width joiners", "\u200d"},
    {"Arabic", "\u0633\u0644\u0627\u0645 "},
    {"Devanagari", "\u0915\u094d\u0937\u093f"},
    {"Thai without blanks", "\u0e01\u0e34\u0e19\u0e02\u0e49\u0e32\u0e27"},
    {"Han and Latin in turn", "\u65e5a"},
    {"scripts in turn", "a\u0430\u03b1\u05d0\u0627\u65e5\u0e01\u0915"},
};

// `piece` again and again, whole, in `length` bytes at most.
std::string textOf(std::string_view piece, std::size_t length)
{
    std::string text;
    while (text.size() + piece.size() <= length) text += piece;
    return text;
}

std::string nameOf(std::string_view piece)
{
    std::string name = textOf(piece, kNameLength);
    std::replace(name.begin(), name.end(), '\n', ' ');
    return name + ".jpg";
}

double processorMilliseconds()
{
    timespec now = {};
    (void)clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

// The milliseconds of processor time until the window shows all of a file.
double look(AppController& controller, const std::string& path)
{
    const StringHolder text(createPathText(path));
    QElapsedTimer patience;
    patience.start();
    const double begin = processorMilliseconds();
    controller.updateValuesForNewPath(text.get());
    while (controller.reading().isGoingOn() && !patience.hasExpired(kPatience))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents);
    QCoreApplication::processEvents();
    controller.myWindow->repaint();
    return processorMilliseconds() - begin;
}

void measure(AppController& controller, const test::TemporaryFolder& home, const char* name,
             const std::string& path)
{
    const std::string usual = home.file("usual.jpg");
    std::vector<double> times;
    for (int turn = 0; turn < kLooks; turn++) {
        (void)look(controller, usual);
        times.push_back(look(controller, path));
    }
    std::sort(times.begin(), times.end());
    std::printf("| %s | %.1f ms | %.1f ms |\n", name, times[kLooks / 2], times.back());
    std::fflush(stdout);
}
}  // namespace

int main(int argc, char** argv)
{
    const test::TemporaryFolder home;
    const test::ScopedVariable homeFolder("HOME", home.path().c_str());
    const test::ScopedVariable cache("XDG_CACHE_HOME", home.file("cache").c_str());
    const test::ScopedVariable settings("XDG_CONFIG_HOME", home.file("config").c_str());
    cuReadPicturesElsewhere();
    QApplication application(argc, argv);
    AppController controller;
    if (!controller.init()) return 1;
    controller.applicationWillFinishLaunching();
    controller.awakeFromNib();
    controller.gUpdateTimer->stop();
    controller.showMainWindow();
    QCoreApplication::processEvents();

    (void)home.write("usual.jpg", test::pictureWithLongTexts(textOf("Usual ", kUsualLength)));
    (void)home.write("other.jpg", test::pictureWithLongTexts(textOf("Other ", kUsualLength)));
    std::puts(
        "| texts of a picture | processor time, median | longest |\n"
        "|---|---|---|");
    measure(controller, home, "usual ones", home.file("other.jpg"));
    for (const Row& row : kRows)
        measure(controller, home, row.name,
                home.write(nameOf(row.piece),
                           test::pictureWithLongTexts(textOf(row.piece, kTextLength))));
    return 0;
}
