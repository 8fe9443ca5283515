// Asks an object on a bus for its text twenty times a second, as a screen reader may, and measures
// how long each answer takes.
//
// usage: answer_probe ADDRESS OWNER PATH PROCESS...
//   PROCESS  the processes that take part in an answer besides this one: the window and the bus
// usage: answer_probe burst URI
//   asks the window over the session bus to open URI as fast as it can, until the input ends
//
// A machine that has no processor to spare keeps everybody waiting. The kernel counts for each
// thread how long it was ready to run and did not (proc_pid_schedstat); what the processes so
// waited during a question is no fault of the window's, and is taken off. So is the time that the
// bus needs for an answer of its own before and after, if that is longer: other programs keep it
// busy.
//
// "stats" on standard input prints what was measured since the last time: the number of answers,
// the longest one and the longest one without that, in milliseconds. "quit" and the end of the
// input end it.

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int kInterval = 50;       // milliseconds
constexpr int kPatience = 120'000;  // milliseconds
constexpr int kBurst = 200;         // requests at a time
constexpr int kPauseOfBurst = 10;   // milliseconds

// How long the threads of a process were ready to run and did not.
std::chrono::nanoseconds waitedFor(const std::string& process)
{
    std::chrono::nanoseconds waited{};
    std::error_code error;
    for (const auto& thread :
         std::filesystem::directory_iterator("/proc/" + process + "/task", error)) {
        long long ran = 0;
        long long ready = 0;
        std::ifstream(thread.path() / "schedstat") >> ran >> ready;
        waited += std::chrono::nanoseconds(ready);
    }
    return waited;
}

std::chrono::nanoseconds waitedFor(const std::vector<std::string>& processes)
{
    std::chrono::nanoseconds waited{};
    for (const std::string& process : processes) waited += waitedFor(process);
    return waited;
}

// A line of the input, once there is one; "quit" at its end.
std::string command(int milliseconds)
{
    pollfd state = {STDIN_FILENO, POLLIN, 0};
    if (poll(&state, 1, milliseconds) <= 0) return {};
    char line[64];
    const ssize_t count = read(STDIN_FILENO, line, sizeof line);
    if (count <= 0) return "quit";
    const std::string text(line, static_cast<std::size_t>(count));
    return text.substr(0, text.find('\n'));
}

int sendBursts(const QString& uri)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    QDBusMessage request = QDBusMessage::createMethodCall(
        QStringLiteral("org.pinorama.Pinorama"), QStringLiteral("/org/pinorama/Pinorama"),
        QStringLiteral("org.freedesktop.Application"), QStringLiteral("Open"));
    request << QStringList(uri) << QVariantMap();
    long count = 0;
    while (command(kPauseOfBurst) != "quit") {
        for (int i = 0; i < kBurst; i++) {
            if (!bus.send(request)) return 1;
        }
        count += kBurst;
    }
    std::printf("%ld\n", count);
    return 0;
}

Clock::duration timeOf(const QDBusConnection& bus, const QDBusMessage& question)
{
    const Clock::time_point start = Clock::now();
    (void)bus.call(question, QDBus::Block, kPatience);
    return Clock::now() - start;
}

int probe(const QStringList& arguments)
{
    const QDBusConnection bus =
        QDBusConnection::connectToBus(arguments[1], QStringLiteral("accessibility"));
    std::vector<std::string> processes = {std::to_string(getpid())};
    for (const QString& process : arguments.mid(4)) processes.push_back(process.toStdString());
    QDBusMessage question = QDBusMessage::createMethodCall(arguments[2], arguments[3],
                                                           QStringLiteral("org.a11y.atspi.Text"),
                                                           QStringLiteral("GetText"));
    question << 0 << -1;
    const QDBusMessage questionToBus = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId"));
    long count = 0;
    Milliseconds longest{};
    Milliseconds longestOwn{};
    for (std::string line; line != "quit"; line = command(kInterval)) {
        if (line == "stats") {
            std::printf("%ld %.1f %.1f\n", count, longest.count(), longestOwn.count());
            std::fflush(stdout);
            count = 0;
            longest = longestOwn = {};
        }
        const Clock::duration before = timeOf(bus, questionToBus);
        const std::chrono::nanoseconds waited = waitedFor(processes);
        const Clock::time_point start = Clock::now();
        const QDBusMessage answer = bus.call(question, QDBus::Block, kPatience);
        const Clock::duration taken = Clock::now() - start;
        if (answer.type() != QDBusMessage::ReplyMessage) {
            std::fprintf(stderr, "%s\n", qPrintable(answer.errorMessage()));
            return 1;
        }
        count++;
        longest = std::max<Milliseconds>(longest, taken);
        const auto added = waitedFor(processes) - waited;
        const Clock::duration ofBus = std::max(before, timeOf(bus, questionToBus));
        longestOwn =
            std::max<Milliseconds>(longestOwn, taken - std::max<Clock::duration>(added, ofBus));
    }
    return 0;
}
}  // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == QLatin1String("burst")) {
        return sendBursts(arguments[2]);
    }
    if (arguments.size() < 5) return 2;
    return probe(arguments);
}
