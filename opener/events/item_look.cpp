#include "opener/events/item_look.h"

#include "opener/events/picture_opener.h"

#include <QTimer>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <memory>
#include <utility>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

constexpr auto kPatience = 40ms;
constexpr auto kSilence = 3s;

bool fitIntoRequest(const std::vector<std::string>& paths)
{
    std::size_t size = 0;
    for (const std::string& path : paths) {
        size += path.size() + 1;
        if (path.empty() || path.size() > kMaxOpenPath) return false;
    }
    return size <= kMaxPathBytes && paths.size() <= kMaxOpenPaths;
}

// Passes on what a question has brought, or that it has brought nothing.
void tell(const OpenerQuestion& question, const TakeItems& take)
{
    if (question.stage() == OpenStage::noOpener) return take({}, EIO);
    const std::vector<ItemFacts>& items = question.facts();
    const bool isKnown = question.stage() == OpenStage::done &&
                         std::ranges::all_of(items, [](const auto& item) { return item.isKnown; });
    isKnown ? take(items, 0) : take({}, ETIMEDOUT);
}
}  // namespace

void cuLookAtItems(std::vector<std::string> paths, QObject* owner, TakeItems take)
{
    if (!fitIntoRequest(paths)) return take({}, ENAMETOOLONG);
    OpenerClient& opener = cuPictureOpener();
    const std::shared_ptr<OpenerQuestion> question =
        opener.ask({.task = OpenTask::facts, .paths = std::move(paths)});
    const OpenStage stage = opener.wait(*question, kPatience);
    if (stage == OpenStage::done || stage == OpenStage::noOpener) return tell(*question, take);

    auto* look = new QObject(owner);
    const auto once = std::make_shared<TakeItems>(std::move(take));
    const auto finish = [look, question, once] {
        look->deleteLater();
        if (const TakeItems taking = std::exchange(*once, nullptr)) tell(*question, taking);
    };
    QObject::connect(OpenerEvents::instance(), &OpenerEvents::advanced, look, [question, finish] {
        if (question->isAnswered()) finish();
    });
    QTimer::singleShot(kSilence, look, finish);
}

}  // namespace pinorama
