#include "selection/frame_reader.h"

#include "selection/view_choice.h"

#include <QDBusConnection>

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

constexpr auto kClueAge = 1s;        // the folder is looked at again after this time
constexpr int kPartOfTheTime = 250;  // of it goes into reading without a sign of a change
}  // namespace

FrameReader::FrameReader(Accessible frame, const FileManagerKind& kind, pid_t process,
                         bool isDesktop)
    : frame_(std::move(frame)),
      kind_(kind),
      process_(process),
      layout_(std::make_shared<FrameLayout>()),
      folder_(process, isDesktop)
{
}

void FrameReader::forget()
{
    isFound_ = false;
    isStale_ = true;
    layout_ = std::make_shared<FrameLayout>();
    pane_ = 0;
    paths_.clear();
    item_ = {};
    witnesses_.clear();
    cost_ = 1s;
}

void FrameReader::noteFocus(const Accessible& item)
{
    focused_ = item;
    touched_ = item;
    isStale_ = true;
}

void FrameReader::noteSelection(const Accessible& view)
{
    touched_ = view;
    isStale_ = true;
}

bool FrameReader::isDue(Clock::time_point now) const
{
    return now - readAt_ >= cost_ * kPartOfTheTime;
}

Task<Done> FrameReader::findAndRead(Inquiry& inquiry)
{
    FrameLayout found = co_await walkFrame(inquiry, frame_);
    layout_ = std::make_shared<FrameLayout>(std::move(found));
    pane_ = 0;
    isFound_ = !layout_->views.empty();
    if (kind_.manager == FileManager::dolphin) co_await dolphin_.find(inquiry, frame_, process_);
    markStale();
    if (isFound_) co_await read(inquiry);
    co_return {};
}

Task<Done> FrameReader::read(Inquiry& inquiry)
{
    const Clock::time_point start = Clock::now();
    const SharedLayout layout = layout_;
    if (layout->views.empty()) co_return {};
    const bool wasStale = std::exchange(isStale_, false);
    const QDBusMessage askName = nameQuestion(frame_);
    const auto title = textIn(co_await inquiry.answer(askName));
    if (layout_ != layout) co_return {};
    if (!title) {
        forget();
        co_return {};
    }
    if (wasStale || *title != title_ || start - folder_.readAt() >= kClueAge) {
        title_ = *title;
        const bool isSame = co_await folder_.read(inquiry, *title, layout);
        if (layout_ != layout) co_return {};
        if (!isSame) {
            forget();
            co_return {};
        }
    }
    if (wasStale) {
        const bool isSame = co_await haveFoundSizes(inquiry, layout->views);
        if (layout_ != layout) co_return {};
        if (!isSame) {
            forget();
            co_return {};
        }
    }
    if (isGtk4Object(frame_)) {
        if (wasStale) {
            const auto inFront = co_await viewInFront(inquiry, frame_, layout->views, pane_);
            if (layout_ != layout) co_return {};
            if (!inFront) {
                forget();
                co_return {};
            }
            pane_ = *inFront;
        }
    } else if (layout->views.size() > 1) {
        pane_ = co_await paneInUse(inquiry, layout->views, touched_, pane_);
    }

    const View view = layout->views[std::min(pane_, layout->views.size() - 1)];
    const std::vector<Accessible> likely = {focused_, item_};
    SelectedItemsReader reader(kind_.manager, layout, folder_, dolphin_);
    const SelectedItems selected = co_await reader.read(inquiry, view, likely);
    if (layout_ != layout) co_return {};
    if (!selected.isKnown) {
        // The view is gone: the user went to another tab or changed the kind of view.
        forget();
        co_return {};
    }
    takeOver(selected);
    readAt_ = Clock::now();
    cost_ = std::chrono::duration_cast<std::chrono::microseconds>(readAt_ - start);
    co_return {};
}

void FrameReader::takeOver(const SelectedItems& selected)
{
    paths_.clear();
    if (selected.path) paths_.push_back(*selected.path);
    for (const NamedItem& item : selected.items) {
        if (item.path) paths_.push_back(*item.path);
    }
    // A part of a selection is another selection.
    const std::size_t count = selected.path ? 1 : selected.items.size();
    if (paths_.size() != count) paths_.clear();
    item_ = selected.items.size() == 1 ? selected.items.front().item : Accessible{};
    witnesses_ = selected.witnesses;
    witnesses_.push_back({nameQuestion(frame_), [title = title_](const QDBusMessage& answer) {
                              return textIn(answer) == title;
                          }});
}

Task<Done> FrameReader::check(Inquiry& inquiry)
{
    const Witnesses asked = askToCheck(inquiry);
    const std::vector<QDBusMessage> nothingElse;
    const auto answers = co_await inquiry.answers(nothingElse);
    takeCheck(asked, answers);
    co_return {};
}

Witnesses FrameReader::askToCheck(Inquiry& inquiry) const
{
    for (const Witness& witness : witnesses_) {
        if (witness.isOnSessionBus) {
            inquiry.askAlong(QDBusConnection::sessionBus(), witness.question);
        } else {
            inquiry.askAlong(witness.question);
        }
    }
    return witnesses_;
}

void FrameReader::takeCheck(const Witnesses& asked, const std::vector<QDBusMessage>& answers)
{
    for (std::size_t i = 0; i < asked.size(); i++) {
        if (!asked[i].agrees(answers[i])) isStale_ = true;
    }
}

}  // namespace pinorama
