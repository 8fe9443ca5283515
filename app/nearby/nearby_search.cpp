#include "app/nearby/nearby_search.h"

#include "app/nearby/kept_searches.h"
#include "base/resource_folder.h"
#include "location/picture_source.h"

#include <QFile>
#include <QPointer>
#include <QProcess>
#include <QStringList>
#include <QTimer>

#include <charconv>
#include <chrono>
#include <utility>

namespace pinorama {
namespace {
// For writing down what it has read. It is killed then.
constexpr std::chrono::milliseconds kEndingTime(5000);
constexpr std::chrono::milliseconds kDoneTime(200);  // for the end of one that is done

std::string textOf(double number)
{
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof digits, number).ptr};
}

QStringList argumentsOf(NearbyPlace place)
{
    const std::string near = textOf(place.latitude) + ',' + textOf(place.longitude) + ',' +
                             std::to_string(NearbySearch::kRadius);
    QStringList arguments = {QStringLiteral("--recursive"),
                             QStringLiteral("--quiet"),
                             QStringLiteral("--as-found"),
                             QStringLiteral("--format=list"),
                             QStringLiteral("--files-from=-"),
                             QStringLiteral("--null"),
                             QStringLiteral("--near=") + QString::fromStdString(near)};
    if (readsMoreKinds()) arguments.append(QStringLiteral("--more"));
    return arguments;
}

// The folders as the program's standard input: an argument would have to be a text, which a path
// need not be.
QByteArray inputOf(const std::vector<std::string>& folders)
{
    QByteArray input;
    for (const std::string& folder : folders) {
        input.append(folder.data(), static_cast<qsizetype>(folder.size())).append('\0');
    }
    return input;
}
}  // namespace

std::string nearbySearchProgram()
{
    return helperProgram("pinorama-search", "PINORAMA_SEARCH");
}

NearbySearch::NearbySearch(QObject* parent) : QObject(parent)
{
    connect(&KeptSearches::all(), &KeptSearches::changed, this, &NearbySearch::startIfThereIsRoom);
    connect(&KeptSearches::all(), &KeptSearches::done, this, [this](QProcess* process) {
        // By then it may be gone, and another one stand where it was.
        QTimer::singleShot(kDoneTime, this, [this, done = QPointer(process)] {
            if (done != nullptr && process_ == done) leave();
        });
    });
}

NearbySearch::~NearbySearch()
{
    end();
}

void NearbySearch::begin(NearbyPlace place, const std::vector<std::string>& folders)
{
    end();
    reader_ = {};
    auto* process = new QProcess;
    process_ = process;
    process->setStandardErrorFile(QProcess::nullDevice());
    KeptSearches::all().prepare(process);
    connect(process, &QProcess::readyReadStandardOutput, this,
            [this, process] { takeOutput(process); });
    connect(process, &QProcess::finished, this,
            [this, process](int status, QProcess::ExitStatus exit) {
                takeOutput(process);
                if (process_ != process) return;
                // With status 1 some files could not be read, and all others were.
                const bool isDone = exit == QProcess::NormalExit && (status == 0 || status == 1);
                finish(isDone && reader_.isComplete() ? Outcome::complete : Outcome::cutShort);
            });
    // Queued, because starting may fail at once.
    connect(
        process, &QProcess::errorOccurred, this,
        [this, process](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart && process_ == process) finish(Outcome::missing);
        },
        Qt::QueuedConnection);
    if (folders.empty()) {
        QTimer::singleShot(0, process, [this, process] {
            if (process_ == process) finish(Outcome::complete);
        });
        return;
    }
    process->setProgram(QFile::decodeName(nearbySearchProgram().c_str()));
    process->setArguments(argumentsOf(place));
    input_ = inputOf(folders);
    startIfThereIsRoom();
}

void NearbySearch::startIfThereIsRoom()
{
    if (process_ == nullptr || input_.isEmpty() || KeptSearches::all().isFull()) return;
    process_->start();
    process_->write(std::exchange(input_, {}));
    process_->closeWriteChannel();
}

void NearbySearch::end()
{
    QProcess* process = std::exchange(process_, nullptr);
    if (process == nullptr) return;
    process->disconnect(this);
    input_.clear();
    KeptSearches::all().end(process, kEndingTime);
}

// The program is done and does not end: a disk keeps processes of it.
void NearbySearch::leave()
{
    takeOutput(process_);
    if (process_ == nullptr) return;
    process_->disconnect(this);
    KeptSearches::all().keep(std::exchange(process_, nullptr));
    finish(reader_.isComplete() ? Outcome::complete : Outcome::cutShort);
}

qint64 NearbySearch::processID() const
{
    return process_ == nullptr ? 0 : process_->processId();
}

void NearbySearch::takeOutput(QProcess* process)
{
    const QByteArray bytes = process->readAllStandardOutput();
    std::vector<NearbyPicture> pictures;
    const bool isList =
        reader_.read({bytes.constData(), static_cast<std::size_t>(bytes.size())}, &pictures);
    if (!pictures.empty()) Q_EMIT found(pictures);
    // The receiver may have ended the search or begun another one.
    if (!isList && process_ == process) finish(Outcome::cutShort);
}

void NearbySearch::finish(Outcome outcome)
{
    end();
    Q_EMIT finished(outcome);
}

}  // namespace pinorama
