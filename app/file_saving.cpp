#include "app/file_saving.h"

#include "opener/events/picture_opener.h"

#include <QTimer>

#include <cerrno>
#include <chrono>
#include <utility>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

// Not long, because a look whether there is such a file has been waited for before (item_look.h).
constexpr auto kPatience = 20ms;
constexpr auto kSilence = 3s;  // after which the user is told
}  // namespace

FileSaving::FileSaving(QObject* parent) : QObject(parent)
{
    connect(OpenerEvents::instance(), &OpenerEvents::advanced, this, &FileSaving::takeAnswers);
}

FileSaving::~FileSaving()
{
    // The openers end with this program.
    const auto end = std::chrono::steady_clock::now() + kSilence;
    for (const File& file : files_) {
        const auto left = end - std::chrono::steady_clock::now();
        (void)cuPictureOpener().wait(*file.question,
                                     std::chrono::ceil<std::chrono::milliseconds>(left));
    }
}

void FileSaving::save(const std::string& path, DescriptorHolder content)
{
    const auto question = cuPictureOpener().save(path, std::move(content));
    files_.push_back({path, question});
    (void)cuPictureOpener().wait(*question, kPatience);
    takeAnswers();
    if (question->isAnswered()) return;
    QTimer::singleShot(kSilence, this,
                       [this, path, weak = std::weak_ptr(question)] { saySlow(path, weak); });
}

void FileSaving::takeAnswers()
{
    // Whoever hears of one may save another.
    std::vector<File> answered;
    std::erase_if(files_, [&](File& file) {
        const bool isAnswered = file.question->isAnswered();
        if (isAnswered) answered.push_back(std::move(file));
        return isAnswered;
    });
    for (const File& file : answered) {
        const bool isDone = file.question->stage() == OpenStage::done;
        Q_EMIT saved(file.path, isDone ? file.question->error() : EIO);
    }
}

void FileSaving::saySlow(const std::string& path, const std::weak_ptr<OpenerQuestion>& question)
{
    if (!question.expired()) Q_EMIT saved(path, ETIMEDOUT);
}

}  // namespace pinorama
