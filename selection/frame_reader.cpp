#include "selection/frame_reader.h"

#include "selection/item_name.h"
#include "selection/view_choice.h"

#include <QDBusConnection>

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

constexpr auto kMaxFolderAge = 1s;  // the folder is read again after this time
constexpr int kIdleFactor = 250;  // without a sign of a change, 1/250 of the time goes into reading

bool isPartOf(const FrameLayout& layout, const QString& path)
{
    const auto is = [&](const Accessible& object) { return object.path == path; };
    const auto isIn = [&](const std::vector<Accessible>& objects) {
        return std::any_of(objects.begin(), objects.end(), is);
    };
    const auto isOfView = [&](const View& view) {
        return is(view.object) || isIn(view.ancestors) || isIn(view.focusIndicators);
    };
    const auto isInRow = [&](const std::vector<PathButton>& row) {
        return std::any_of(row.begin(), row.end(),
                           [&](const PathButton& button) { return is(button.object); });
    };
    return std::any_of(layout.views.begin(), layout.views.end(), isOfView) ||
           std::any_of(layout.rows.begin(), layout.rows.end(), isInRow) ||
           std::any_of(layout.rowParents.begin(), layout.rowParents.end(),
                       [&](const RowParent& parent) { return is(parent.object); }) ||
           isIn(layout.locations) || isIn(layout.statusTexts);
}

// Whether a question about a part of the window is worth asking again after the selection has
// changed: not if it is about a certain row or one of several items, nor if the reply is as long as
// the folder.
bool isWorthRepeating(const QDBusMessage& call)
{
    const QString member = call.member();
    if (member == QLatin1String("GetChildren") || member == QLatin1String("GetAccessibleAt"))
        return false;
    return member != QLatin1String("GetSelectedChild") || call.arguments().value(0).toInt() == 0;
}
}  // namespace

FrameReader::FrameReader(Accessible frame, const FileManagerKind& kind, pid_t process,
                         bool isDesktop)
    : frame_(std::move(frame)),
      kind_(kind),
      process_(process),
      window_(kind.makeWindow(process)),
      layout_(std::make_shared<FrameLayout>()),
      folder_(window_->locationColumn(), process, isDesktop)
{
}

void FrameReader::forget()
{
    isFound_ = false;
    isStale_ = true;
    layout_ = std::make_shared<FrameLayout>();
    pane_ = 0;
    paths_.reset();
    item_ = {};
    likely_ = {};
    windowQuestions_.clear();
    itemQuestions_.clear();
    validators_.clear();
    cost_ = 1s;
}

void FrameReader::markStale()
{
    isStale_ = true;
    changedAt_ = Clock::now();
}

void FrameReader::noteFocus(const Accessible& item)
{
    focused_ = item;
    touched_ = item;
    likely_ = item;
    markStale();
}

void FrameReader::noteSelection(const Accessible& object)
{
    touched_ = object;
    markStale();
}

void FrameReader::noteSelected(const Accessible& item)
{
    likely_ = item;
    noteSelection(item);
}

bool FrameReader::isDue(Clock::time_point now) const
{
    return now - readAt_ >= cost_ * kIdleFactor;
}

Task<Done> FrameReader::findAndRead(DBusQuery& query)
{
    FrameLayout found = co_await walkFrame(query, frame_, *window_);
    layout_ = std::make_shared<FrameLayout>(std::move(found));
    pane_ = 0;
    isFound_ = !layout_->views.empty();
    co_await window_->prepare(query, frame_);
    markStale();
    if (isFound_) co_await read(query);
    co_return {};
}

// While this waits, a blocking query may forget the window or read it, and a walk may find another
// layout. `layout` keeps the old one alive. Every co_await is followed by a comparison: if layout_
// is no longer the same, the replies describe a window that has changed, and storing them would
// bring back what forget() has just removed.
Task<Done> FrameReader::read(DBusQuery& query)
{
    const SharedLayout layout = layout_;
    if (layout->views.empty()) co_return {};
    if (isStale_ && !query.sentAheadAt()) askAhead(query);
    const Clock::time_point start = query.sentAheadAt().value_or(Clock::now());
    // The replies to what was sent ahead may be older than a change that was reported since.
    const bool mayMissChange = isStale_ && changedAt_ >= start;
    const bool wasStale = std::exchange(isStale_, mayMissChange);
    (void)query.takeCalls();
    const QDBusMessage getName = nameCall(frame_);
    const auto title = textIn(co_await query.reply(getName));
    if (layout_ != layout) co_return {};
    if (!title) {
        forget();
        co_return {};
    }
    if (wasStale || *title != title_ || start - folder_.readAt() >= kMaxFolderAge) {
        title_ = *title;
        bool isSame = true;
        const auto published = co_await window_->publishedFolders(query, *title);
        if (layout_ != layout) co_return {};
        if (published && !folder_.isDesktop()) {
            folder_.take(*title, *published);
        } else {
            isSame = co_await folder_.read(query, *title, layout);
            if (layout_ != layout) co_return {};
        }
        if (!isSame) {
            forget();
            co_return {};
        }
    }
    if (wasStale) {
        const bool isSame = co_await haveFoundSizes(query, layout->views);
        if (layout_ != layout) co_return {};
        if (!isSame) {
            forget();
            co_return {};
        }
    }
    const ManagerWindow::Situation situation = {.frame = frame_,
                                                .views = layout->views,
                                                .touched = touched_,
                                                .before = pane_,
                                                .hasChanged = wasStale};
    const auto place = co_await window_->viewInUse(query, situation);
    if (layout_ != layout) co_return {};
    if (!place) {
        forget();
        co_return {};
    }
    pane_ = *place;

    const View view = layout->views[std::min(pane_, layout->views.size() - 1)];
    const std::vector<Accessible> likely = {focused_, item_};
    ItemReader reader(*window_, layout, folder_);
    SelectedItems selected = co_await window_->selectedItems(query, reader, view, likely);
    if (layout_ != layout) co_return {};
    if (selected.items.size() == 1) {
        for (Validator& validator : validatorsOf(selected.items.front(), view))
            selected.validators.push_back(std::move(validator));
    }
    if (isScrolledOut(selected)) {
        const auto kept = co_await existingItems(query, *paths_);
        if (layout_ != layout) co_return {};
        if (kept) selected.path = kept->front();
    }
    if (!selected.isKnown) {
        // The view is gone: the user switched to another tab or another kind of view.
        forget();
        co_return {};
    }
    store(selected);
    if (wasStale) noteQuestions(*layout, query.takeCalls());
    readAt_ = Clock::now();
    cost_ = std::chrono::duration_cast<std::chrono::microseconds>(readAt_ - start);
    co_return {};
}

// Newer versions of GTK 4 do not name an item that has been scrolled out of view. It is still the
// same object.
bool FrameReader::isScrolledOut(const SelectedItems& selected) const
{
    return !selected.path && selected.items.size() == 1 && selected.items.front().name.isEmpty() &&
           !selected.items.front().path && selected.items.front().item == item_ && paths_ &&
           paths_->size() == 1;
}

void FrameReader::store(const SelectedItems& selected)
{
    std::vector<std::string> paths;
    if (selected.path) paths.push_back(*selected.path);
    for (const NamedItem& item : selected.items) {
        if (item.path) paths.push_back(*item.path);
    }
    // If one of the items has no path, showing the others would show a selection that is not there.
    const std::size_t count = selected.path ? 1 : selected.items.size();
    if (paths.size() != count) paths.clear();
    const bool isKnown = count != 1 || !paths.empty();
    paths_ = isKnown ? std::optional(std::move(paths)) : std::nullopt;
    // Of several it stays, because Dolphin may still say that there is only one.
    if (selected.items.size() <= 1)
        item_ = selected.items.empty() ? Accessible{} : selected.items.front().item;
    validators_ = selected.validators;
    // Another title mostly means another folder, also where the view still shows the same names.
    validators_.push_back({nameCall(frame_), [title = title_](const QDBusMessage& reply) {
                               return textIn(reply) == title;
                           }});
}

std::vector<DBusQuery::Call> FrameReader::questionsAbout(const Accessible& item) const
{
    std::vector<DBusQuery::Call> calls;
    if (item.isNull()) return calls;
    for (const DBusQuery::Call& question : itemQuestions_) {
        const QDBusMessage& asked = question.message;
        QDBusMessage call = QDBusMessage::createMethodCall(item.service, item.path,
                                                           asked.interface(), asked.member());
        call.setArguments(asked.arguments());
        calls.push_back({question.bus, call});
    }
    return calls;
}

void FrameReader::askAhead(DBusQuery& query) const
{
    query.sendAhead(windowQuestions_);
    query.sendAhead(questionsAbout(likely_));
    if (item_ != likely_) query.sendAhead(questionsAbout(item_));
}

void FrameReader::askAheadAboutItem(DBusQuery& query) const
{
    query.sendAhead(questionsAbout(likely_));
}

void FrameReader::noteQuestions(const FrameLayout& layout, std::vector<DBusQuery::Call> calls)
{
    windowQuestions_.clear();
    std::vector<DBusQuery::Call> ofItem;
    for (const DBusQuery::Call& call : calls) {
        const QString path = call.message.path();
        if (!item_.isNull() && path == item_.path) {
            ofItem.push_back(call);
        } else if (call.message.service() != frame_.service || path == frame_.path ||
                   isPartOf(layout, path)) {
            if (isWorthRepeating(call.message)) windowQuestions_.push_back(call);
        }
    }
    if (!ofItem.empty()) itemQuestions_ = std::move(ofItem);
}

Task<Done> FrameReader::revalidate(DBusQuery& query)
{
    const Validators sent = sendRevalidation(query);
    const std::vector<QDBusMessage> noFurtherCalls;
    const auto replies = co_await query.replies(noFurtherCalls);
    takeRevalidation(sent, replies);
    co_return {};
}

Validators FrameReader::sendRevalidation(DBusQuery& query) const
{
    for (const Validator& validator : validators_) {
        if (validator.isOnSessionBus) {
            query.sendAlong(QDBusConnection::sessionBus(), validator.call);
        } else {
            query.sendAlong(validator.call);
        }
    }
    return validators_;
}

void FrameReader::takeRevalidation(const Validators& sent, const std::vector<QDBusMessage>& replies)
{
    for (std::size_t i = 0; i < sent.size(); i++) {
        if (!sent[i].stillHolds(replies[i])) isStale_ = true;
    }
}

}  // namespace pinorama
