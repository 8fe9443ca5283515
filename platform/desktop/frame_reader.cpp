#include "platform/desktop/frame_reader.h"

#include "platform/desktop/view_choice.h"

#include <QDBusConnection>

#include <algorithm>
#include <utility>

namespace {
using namespace std::chrono_literals;

constexpr auto kClueAge = 1s;        // the folder is looked at again after this time
constexpr int kPartOfTheTime = 250;  // of it goes into reading without a sign of a change
}  // namespace

platform::FrameReader::FrameReader(Accessible frame, const FileManagerKind& kind, pid_t process,
                                   bool isDesktop)
    : frame_(std::move(frame)), kind_(kind), process_(process), folder_(process, isDesktop)
{
}

void platform::FrameReader::forget()
{
    isFound_ = false;
    isStale_ = true;
    layout_ = {};
    pane_ = 0;
    paths_.clear();
    item_ = {};
    witnesses_.clear();
    cost_ = 1s;
}

void platform::FrameReader::noteFocus(const Accessible& item)
{
    focused_ = item;
    touched_ = item;
    isStale_ = true;
}

void platform::FrameReader::noteSelection(const Accessible& view)
{
    touched_ = view;
    isStale_ = true;
}

bool platform::FrameReader::isDue(Clock::time_point now) const
{
    return now - readAt_ >= cost_ * kPartOfTheTime;
}

platform::Task<platform::Done> platform::FrameReader::findAndRead(Inquiry& inquiry)
{
    FrameLayout layout;
    co_await walkFrame(inquiry, frame_, &layout);
    layout_ = std::move(layout);
    pane_ = 0;
    isFound_ = !layout_.views.empty();
    if (kind_.manager == FileManager::dolphin) co_await dolphin_.find(inquiry, frame_, process_);
    markStale();
    if (isFound_) co_await read(inquiry);
    co_return {};
}

platform::Task<platform::Done> platform::FrameReader::read(Inquiry& inquiry)
{
    const Clock::time_point start = Clock::now();
    const bool wasStale = std::exchange(isStale_, false);
    const QDBusMessage askName = nameQuestion(frame_);
    const auto title = textIn(co_await inquiry.answer(askName));
    if (!title) {
        forget();
        co_return {};
    }
    if (wasStale || *title != title_ || start - folder_.readAt() >= kClueAge) {
        title_ = *title;
        if (!co_await folder_.read(inquiry, title_, layout_)) {
            forget();
            co_return {};
        }
    }
    if (wasStale && !co_await haveFoundSizes(inquiry, layout_.views)) {
        forget();
        co_return {};
    }
    if (isGtk4Object(frame_)) {
        if (wasStale) {
            const auto inFront = co_await viewInFront(inquiry, frame_, layout_.views, pane_);
            if (!inFront) {
                forget();
                co_return {};
            }
            pane_ = *inFront;
        }
    } else if (layout_.views.size() > 1) {
        pane_ = co_await paneInUse(inquiry, layout_.views, touched_, pane_);
    }

    const View view = layout_.views[std::min(pane_, layout_.views.size() - 1)];
    const std::vector<Accessible> likely = {focused_, item_};
    SelectedItemsReader reader(kind_.manager, layout_, folder_, dolphin_);
    const SelectedItems selected = co_await reader.read(inquiry, view, likely);
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

void platform::FrameReader::takeOver(const SelectedItems& selected)
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

platform::Task<platform::Done> platform::FrameReader::check(Inquiry& inquiry)
{
    askToCheck(inquiry);
    const std::vector<QDBusMessage> nothingElse;
    const auto answers = co_await inquiry.answers(nothingElse);
    takeCheck(answers);
    co_return {};
}

void platform::FrameReader::askToCheck(Inquiry& inquiry) const
{
    for (const Witness& witness : witnesses_) {
        if (witness.isOnSessionBus) {
            inquiry.askAlong(QDBusConnection::sessionBus(), witness.question);
        } else {
            inquiry.askAlong(witness.question);
        }
    }
}

void platform::FrameReader::takeCheck(const std::vector<QDBusMessage>& answers)
{
    for (std::size_t i = 0; i < witnesses_.size(); i++) {
        if (!witnesses_[i].agrees(answers[i])) isStale_ = true;
    }
}
