#include "app/column/place_look_up.h"

#include "app/nearby/nearby_search.h"
#include "lib/strings/string_holder.h"
#include "lib/ui/qt_text.h"
#include "location/coordinate_text.h"
#include "location/picture_source.h"
#include "places/words/place_words.h"

#include <QByteArray>
#include <QFile>
#include <QProcess>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <optional>
#include <utility>

#include <sys/prctl.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr std::chrono::milliseconds kEndingTime(1000);  // then it is killed
constexpr int kNiceness = 5;                            // the picture that is shown comes first

QStringList arguments()
{
    QStringList arguments = {QStringLiteral("--quiet"), QStringLiteral("--format=list"),
                             QStringLiteral("--files-from=-"), QStringLiteral("--null")};
    if (readsMoreKinds()) arguments.append(QStringLiteral("--more"));
    return arguments;
}

// The paths as the program's standard input: an argument would have to be a text, which a path need
// not be.
QByteArray inputOf(const std::vector<std::string>& paths)
{
    QByteArray input;
    for (const std::string& path : paths) {
        input.append(path.data(), static_cast<qsizetype>(path.size())).append('\0');
    }
    return input;
}

// Runs in the child before it becomes the program: without the window nobody wants its result.
void prepareChild()
{
    (void)prctl(PR_SET_PDEATHSIG, SIGTERM);
    (void)nice(kNiceness);
}

// The coordinate as the window shows it.
QString coordinateText(double latitude, double longitude)
{
    fileInfoRecord record{};
    record.latti = std::abs(latitude);
    record.longi = std::abs(longitude);
    record.refLatti = latitude < 0 ? 'S' : 'N';
    record.refLongi = longitude < 0 ? 'W' : 'E';
    return cuDisplayText(StringHolder(gpsMakePositionText(record)).get());
}
}  // namespace

PlaceLookUp::PlaceLookUp(std::chrono::milliseconds patience) : patience_(patience)
{
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &PlaceLookUp::end);
}

PlaceLookUp::~PlaceLookUp()
{
    if (process_ == nullptr) return;
    process_->disconnect(this);
    process_->kill();
    // Not deleted here: a process that a disk keeps would be waited for.
    connect(process_, &QProcess::finished, process_, &QObject::deleteLater);
}

void PlaceLookUp::begin(std::vector<std::string> paths)
{
    paths_ = std::move(paths);
    places_.clear();
    pictures_ = 0;
    output_ = {};
    isWaiting_ = true;
    process_ = new QProcess;
    process_->setStandardErrorFile(QProcess::nullDevice());
    process_->setChildProcessModifier(&prepareChild);
    connect(process_, &QProcess::readyReadStandardOutput, this, &PlaceLookUp::takeOutput);
    const auto onEnd = [this] {
        takeOutput();
        std::exchange(process_, nullptr)->deleteLater();
        finish();
        Q_EMIT idle();
    };
    connect(process_, &QProcess::finished, this, onEnd);
    // Queued, because starting may fail at once.
    connect(
        process_, &QProcess::errorOccurred, this,
        [onEnd](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart) onEnd();
        },
        Qt::QueuedConnection);
    timer_.start(patience_);
    process_->start(QFile::decodeName(nearbySearchProgram().c_str()), arguments());
    process_->write(inputOf(paths_));
    process_->closeWriteChannel();
}

qint64 PlaceLookUp::processID() const
{
    return process_ == nullptr ? 0 : process_->processId();
}

void PlaceLookUp::takeOutput()
{
    if (!isWaiting_) return;
    const QByteArray bytes = process_->readAllStandardOutput();
    const bool isList = output_.read(
        {bytes.constData(), static_cast<std::size_t>(bytes.size())},
        [this](const std::vector<std::string>& fields) { return takePicture(fields); });
    if (!isList) end();
}

// False for what the program does not print.
bool PlaceLookUp::takePicture(const std::vector<std::string>& fields)
{
    if (pictures_++ == paths_.size()) return false;
    const std::optional<double> latitude = numberOfField(fields[kListLatitude]);
    const std::optional<double> longitude = numberOfField(fields[kListLongitude]);
    if (!latitude || !longitude) return true;
    const auto place = finder_.find(*latitude, *longitude);
    const StringHolder words(place ? createPlaceText(*place) : nullptr);
    places_[fields[kListPath]] =
        words ? cuDisplayText(words.get()) : coordinateText(*latitude, *longitude);
    return true;
}

void PlaceLookUp::finish()
{
    timer_.stop();
    if (!std::exchange(isWaiting_, false)) return;
    QStringList places;
    for (const std::string& path : paths_) {
        const auto place = places_.find(path);
        places.append(place == places_.end() ? QString() : place->second);
    }
    Q_EMIT finished(places);
}

// The time is over, or the program prints something else: what is known by now is the result.
void PlaceLookUp::end()
{
    QProcess* process = process_;
    process->closeReadChannel(QProcess::StandardOutput);
    process->terminate();
    QTimer::singleShot(kEndingTime, process, [process] { process->kill(); });
    finish();
}

}  // namespace pinorama
