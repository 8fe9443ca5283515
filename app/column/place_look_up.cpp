#include "app/column/place_look_up.h"

#include "app/nearby/kept_searches.h"
#include "app/nearby/nearby_search.h"
#include "lib/strings/string_holder.h"
#include "lib/ui/qt_text.h"
#include "location/coordinate_text.h"
#include "location/picture_source.h"
#include "places/words/place_words.h"

#include <QByteArray>
#include <QFile>
#include <QPointer>
#include <QProcess>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace pinorama {
namespace {
constexpr std::chrono::milliseconds kEndingTime(1000);  // then it is killed
constexpr std::chrono::milliseconds kDoneTime(200);     // for the end of one that is done

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
    connect(&KeptSearches::all(), &KeptSearches::changed, this, [this] {
        if (!KeptSearches::all().isEnding(ending_)) ending_ = nullptr;
        beIdle();
    });
    connect(&KeptSearches::all(), &KeptSearches::done, this, [this](QProcess* process) {
        // By then it may be gone, and another one stand where it was.
        QTimer::singleShot(kDoneTime, this, [this, done = QPointer(process)] {
            if (done != nullptr && process_ == done) leave();
        });
    });
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
    KeptSearches::all().prepare(process_);
    connect(process_, &QProcess::readyReadStandardOutput, this, &PlaceLookUp::takeOutput);
    const auto onEnd = [this, process = process_] {
        takeOutput();
        if (process_ != process) return;  // that was no list
        std::exchange(process_, nullptr)->deleteLater();
        finish();
        beIdle();
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

// The program is done and does not end: a disk keeps processes of it.
void PlaceLookUp::leave()
{
    const QProcess* const process = process_;
    takeOutput();
    if (process_ != process) return;  // that was no list
    process_->disconnect(this);
    KeptSearches::all().keep(std::exchange(process_, nullptr));
    finish();
    beIdle();
}

// The time is over, or the program prints something else: what is known by now is the result.
void PlaceLookUp::end()
{
    process_->disconnect(this);
    QProcess* const process = std::exchange(process_, nullptr);
    ending_ = process;
    KeptSearches::all().end(process, kEndingTime);
    if (!KeptSearches::all().isEnding(ending_)) ending_ = nullptr;  // it has ended already
    finish();
    beIdle();
}

bool PlaceLookUp::isIdle() const
{
    return process_ == nullptr && ending_ == nullptr && !KeptSearches::all().isFull();
}

void PlaceLookUp::beIdle()
{
    if (isIdle()) Q_EMIT idle();
}

}  // namespace pinorama
