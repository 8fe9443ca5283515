#include "platform/desktop/frame_reader.h"

#include "platform/desktop/item_name.h"
#include "platform/desktop/places.h"
#include "platform/desktop/status_text.h"
#include "platform/files/user_folders.h"

#include <algorithm>
#include <utility>

namespace {
using namespace std::chrono_literals;

constexpr auto kClueAge = 1s;                // the folder is looked at again after this time
constexpr std::size_t kMostSelected = 64;    // items whose paths are told
constexpr std::size_t kMostScanned = 20000;  // items of a view that are looked at one by one
constexpr std::size_t kMostAtOnce = 64;      // questions that wait for an answer
constexpr int kDeepestItem = 12;             // steps from a part of an item to the view
constexpr int kLongestPath = 4096;           // UTF-16 units
constexpr int kPartOfTheTime = 250;          // of it goes into reading without a sign of a change

// Whether an object is the view or one of the few containers that hold it and nothing else, such as
// its scrolled window. Further up everything belongs to all tabs.
bool isCloseAround(const platform::View& view, const platform::Accessible& object)
{
    constexpr std::size_t kClose = 4;
    if (view.object == object) return true;
    const std::size_t count = std::min(kClose, view.above.size());
    return std::find(view.above.end() - static_cast<long>(count), view.above.end(), object) !=
           view.above.end();
}
}  // namespace

platform::FrameReader::FrameReader(Accessible frame, const FileManagerKind& kind, pid_t process,
                                   bool isDesktop)
    : frame_(std::move(frame)), kind_(kind), process_(process), isDesktop_(isDesktop)
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

bool platform::FrameReader::isStale(Clock::time_point now) const
{
    return isStale_ || now - readAt_ >= cost_ * kPartOfTheTime;
}

platform::Task<platform::Done> platform::FrameReader::findAndRead(Inquiry& inquiry)
{
    FrameLayout layout;
    co_await walkFrame(inquiry, frame_, &layout);
    layout_ = std::move(layout);
    pane_ = 0;
    isFound_ = !layout_.views.empty();
    if (kind_.manager == FileManager::dolphin) co_await findDolphinWindow(inquiry);
    cluesRead_ = {};
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
    if (wasStale || *title != title_ || start - cluesRead_ >= kClueAge) {
        title_ = *title;
        if (!co_await readClues(inquiry)) {
            forget();
            co_return {};
        }
    }
    const bool isAsBefore = !wasStale || co_await isOfOneMake(inquiry);
    if (!isAsBefore) {
        forget();
        co_return {};
    }
    if (isGtk4Object(frame_)) {
        if (wasStale && !co_await chooseViewInFront(inquiry)) {
            forget();
            co_return {};
        }
    } else if (layout_.views.size() > 1) {
        co_await choosePane(inquiry);
    }

    const Items items = co_await readItems(inquiry);
    if (!items.isKnown) {
        // The view is gone: the user went to another tab or changed the kind of view.
        forget();
        co_return {};
    }
    std::vector<std::string> paths;
    if (items.path) paths.push_back(*items.path);
    for (const Accessible& object : items.objects) {
        auto path = co_await pathOf(inquiry, object);
        if (path) paths.push_back(std::move(*path));
    }
    // A part of a selection is another selection.
    const std::size_t count = items.path ? 1 : items.objects.size();
    if (paths.size() != count) paths.clear();
    paths_ = std::move(paths);
    if (items.objects.size() != 1) item_ = {};
    readAt_ = Clock::now();
    cost_ = std::chrono::duration_cast<std::chrono::microseconds>(readAt_ - start);
    co_return {};
}

platform::Task<platform::Done> platform::FrameReader::check(Inquiry& inquiry)
{
    std::vector<QDBusMessage> questions = {nameQuestion(frame_)};
    if (!item_.isNull()) {
        questions.push_back(nameQuestion(namedPart_));
        if (tellsItsState_) {
            questions.push_back(statesQuestion(item_));
        } else {
            const Accessible& view = layout_.views[pane_].object;
            questions.push_back(selectedCountQuestion(view));
            questions.push_back(selectedChildQuestion(view, 0));
        }
    }
    const auto answers = co_await inquiry.answers(questions);
    bool holds = textIn(answers[0]) == title_;
    if (!item_.isNull()) {
        holds = holds && textIn(answers[1]) == partName_;
        holds =
            holds && (tellsItsState_ ? has(statesIn(answers[2]).value_or(0), State::selected)
                                     : numberIn(answers[2]) == 1U && objectIn(answers[3]) == item_);
    }
    if (!holds) isStale_ = true;
    co_return {};
}

// Finds out which folder the window may show. False when the window has changed its make-up.
platform::Task<bool> platform::FrameReader::readClues(Inquiry& inquiry)
{
    cluesRead_ = Clock::now();
    if (isDesktop_) {
        folders_ = {desktopFolder()};
        co_return true;
    }
    FolderClues clues;
    clues.title = title_;
    std::vector<QDBusMessage> questions;
    // GTK 4 gives nothing for the whole of a text, only for a part that is long enough.
    const int end = isGtk4Object(frame_) ? kLongestPath : -1;
    for (const Accessible& entry : layout_.locations) questions.push_back(textQuestion(entry, end));
    const auto answers = co_await inquiry.answers(questions);
    for (const QDBusMessage& answer : answers) {
        const auto text = textIn(answer);
        if (!text) co_return false;
        clues.locations.push_back(*text);
    }
    folders_ = foldersShown(clues, {}, {});
    if (!notedFolder_.empty()) folders_.push_back(notedFolder_);
    if (!folders_.empty()) co_return true;

    if (!co_await readRows(inquiry, &clues)) co_return false;
    folders_ = foldersShown(clues, places(), foldersWatchedBy(process_));
    co_return true;
}

platform::Task<bool> platform::FrameReader::readRows(Inquiry& inquiry, FolderClues* clues)
{
    std::vector<QDBusMessage> questions;
    for (const RowParent& parent : layout_.rowParents)
        questions.push_back(childCountQuestion(parent.object));
    for (const auto& row : layout_.rows) {
        for (const PathButton& button : row) {
            questions.push_back(nameQuestion(button.object));
            questions.push_back(statesQuestion(button.object));
        }
    }
    const auto answers = co_await inquiry.answers(questions);
    auto answer = answers.begin();
    for (const RowParent& parent : layout_.rowParents) {
        if (numberIn(*answer++) != parent.childCount) co_return false;
    }
    for (const auto& row : layout_.rows) {
        std::vector<RowButton> buttons;
        for (std::size_t i = 0; i < row.size(); i++, answer += 2) {
            const auto name = textIn(answer[0]);
            if (!name) co_return false;
            const States states = statesIn(answer[1]).value_or(0);
            buttons.push_back({*name, has(states, State::checked) || has(states, State::pressed)});
        }
        clues->rows.push_back(std::move(buttons));
    }
    co_return true;
}

// A window that is split or made one again gives its views another size. So does one that the user
// makes larger, which costs one walk.
platform::Task<bool> platform::FrameReader::isOfOneMake(Inquiry& inquiry)
{
    std::vector<QDBusMessage> questions;
    for (const View& view : layout_.views) questions.push_back(sizeQuestion(view.object));
    const auto answers = co_await inquiry.answers(questions);
    for (std::size_t i = 0; i < answers.size(); i++) {
        if (sizeIn(answers[i]) != layout_.views[i].size) co_return false;
    }
    co_return true;
}

// Of several panes the one counts that has the focus, or, where a view does not tell, the one in
// which something was focused or selected last.
platform::Task<platform::Done> platform::FrameReader::choosePane(Inquiry& inquiry)
{
    std::vector<QDBusMessage> questions;
    for (const View& view : layout_.views) {
        for (const Accessible& mark : view.focusMarks) questions.push_back(statesQuestion(mark));
    }
    if (!touched_.isNull()) questions.push_back(parentQuestion(touched_));
    const auto answers = co_await inquiry.answers(questions);

    std::optional<std::size_t> focusedPane;
    std::optional<std::size_t> touchedPane;
    const auto holder = touched_.isNull() ? std::nullopt : objectIn(answers.back());
    auto answer = answers.begin();
    for (std::size_t i = 0; i < layout_.views.size(); i++) {
        const View& view = layout_.views[i];
        for (std::size_t j = 0; j < view.focusMarks.size(); j++, ++answer) {
            if (has(statesIn(*answer).value_or(0), State::focused)) focusedPane = i;
        }
        if (view.object == touched_ || holder == view.object) touchedPane = i;
    }
    pane_ = focusedPane.value_or(touchedPane.value_or(pane_));
    co_return {};
}

// What is found at a point of the window belongs to the tab in front. False when that is none of
// the known views.
platform::Task<bool> platform::FrameReader::chooseViewInFront(Inquiry& inquiry)
{
    const QDBusMessage askExtents = extentsQuestion(layout_.views.front().object);
    const auto extents = extentsIn(co_await inquiry.answer(askExtents));
    if (!extents || extents->size.area() == 0) co_return false;
    // GTK 4 finds nothing where an item lies that nobody has asked for yet, so the edges of the
    // view are tried before its middle.
    const int right = extents->left + extents->size.width;
    const int bottom = extents->top + extents->size.height;
    const std::vector<std::pair<int, int>> points = {
        {extents->left + 6, extents->top + 6},
        {right - 6, bottom - 6},
        {(extents->left + right) / 2, bottom - 6},
        {(extents->left + right) / 2, (extents->top + bottom) / 2}};
    for (const auto& [x, y] : points) {
        const QDBusMessage askObjectAtPoint = objectAtPointQuestion(frame_, x, y);
        std::optional<Accessible> object = objectIn(co_await inquiry.answer(askObjectAtPoint));
        if (!object) continue;
        for (int steps = 0; object && steps < kDeepestItem; steps++) {
            for (std::size_t i = 0; i < layout_.views.size(); i++) {
                if (!isCloseAround(layout_.views[i], *object)) continue;
                pane_ = i;
                co_return true;
            }
            const QDBusMessage askParent = parentQuestion(*object);
            object = objectIn(co_await inquiry.answer(askParent));
        }
        co_return false;
    }
    co_return true;  // nothing speaks against the view that was in front before
}

platform::Task<platform::FrameReader::Items> platform::FrameReader::readItems(Inquiry& inquiry)
{
    const View view = layout_.views[std::min(pane_, layout_.views.size() - 1)];
    switch (view.access) {
    case ViewAccess::selection: {
        Items items = co_await readSelection(inquiry, view);
        co_return items;
    }
    case ViewAccess::table: {
        Items items = co_await readTable(inquiry, view);
        co_return items;
    }
    case ViewAccess::states: {
        Items items = co_await readStates(inquiry, view);
        co_return items;
    }
    case ViewAccess::opaque: break;
    }
    Items items = co_await readStatus(inquiry);
    co_return items;
}

platform::Task<platform::FrameReader::Items> platform::FrameReader::readSelection(Inquiry& inquiry,
                                                                                  View view)
{
    Items items;
    const std::vector<QDBusMessage> asked =
        together(selectedCountQuestion(view.object), selectedChildQuestion(view.object, 0),
                 statesQuestion(view.object));
    const auto answers = co_await inquiry.answers(asked);
    const auto count = numberIn(answers[0]);
    const auto states = statesIn(answers[2]);
    const State shown = isGtk4Object(view.object) ? State::visible : State::showing;
    if (!count || !states || !has(*states, shown)) co_return items;
    items.isKnown = true;
    if (*count == 0) co_return items;

    std::vector<QDBusMessage> questions;
    for (std::size_t i = 1; i < std::min<std::size_t>(*count, kMostSelected); i++)
        questions.push_back(selectedChildQuestion(view.object, static_cast<int>(i)));
    std::vector<QDBusMessage> more = co_await inquiry.answers(questions);
    more.insert(more.begin(), answers[1]);
    for (const QDBusMessage& answer : more) {
        // Some programs count right and yet give nothing for all but the first.
        items.objects.push_back(objectIn(answer).value_or(Accessible{}));
    }
    if (*count == 1) {
        const auto path = co_await pathOf(inquiry, items.objects.front());
        if (!path) {
            // The item has no name of its own; the status bar may tell it.
            const Items told = co_await readStatus(inquiry);
            if (told.path) co_return told;
        }
    }
    co_return items;
}

platform::Task<platform::FrameReader::Items> platform::FrameReader::readTable(Inquiry& inquiry,
                                                                              View view)
{
    Items items;
    const QDBusMessage askSelectedRows = selectedRowsQuestion(view.object);
    const auto rows = numbersIn(co_await inquiry.answer(askSelectedRows), kMostSelected);
    const QDBusMessage askStates = statesQuestion(view.object);
    const auto states = statesIn(co_await inquiry.answer(askStates));
    if (!rows || !states || !has(*states, State::showing)) co_return items;
    items.isKnown = true;
    for (const int row : *rows) {
        std::optional<Accessible> cell;
        // The column of the names is not always the first; the others hold pictures, sizes, dates.
        for (int column = 0; column < 4; column++) {
            const QDBusMessage askCell = cellQuestion(view.object, row, column);
            const auto candidate = objectIn(co_await inquiry.answer(askCell));
            if (!candidate) continue;
            const auto path = co_await pathOf(inquiry, *candidate);
            if (!cell || path) cell = candidate;
            if (path) break;
        }
        items.objects.push_back(cell.value_or(Accessible{}));
    }
    co_return items;
}

platform::Task<platform::FrameReader::Items> platform::FrameReader::readStatus(Inquiry& inquiry)
{
    Items items;
    items.isKnown = true;
    std::vector<QDBusMessage> questions;
    for (const Accessible& text : layout_.statusTexts) questions.push_back(nameQuestion(text));
    const auto answers = co_await inquiry.answers(questions);
    for (const QDBusMessage& answer : answers) {
        const auto text = textIn(answer);
        if (!text) {
            items.isKnown = false;
            continue;
        }
        for (const QString& name : quotedNames(*text)) {
            items.path = pathOfName(name);
            if (items.path) co_return items;
        }
    }
    co_return items;
}

platform::Task<platform::FrameReader::Items> platform::FrameReader::readStates(Inquiry& inquiry,
                                                                               View view)
{
    Items items;
    if (!layout_.statusTexts.empty()) {
        items = co_await readStatus(inquiry);
        co_return items;
    }
    // Dolphin's view counts as showing in every tab; what holds it does in the one in front.
    const QDBusMessage askStates = statesQuestion(view.above.back());
    const auto isShowing = statesIn(co_await inquiry.answer(askStates));
    if (!isShowing || !has(*isShowing, State::showing)) co_return items;
    items.isKnown = true;
    const auto isOne = co_await isOneSelectedInDolphin(inquiry);
    if (isOne.has_value()) {
        if (!*isOne) co_return items;
        // Nearly always the selected item has the focus as well.
        const std::vector<Accessible> candidates = likelyItems();
        for (const Accessible& candidate : candidates) {
            if (candidate.isNull()) continue;
            const std::vector<QDBusMessage> asked =
                together(statesQuestion(candidate), parentQuestion(candidate));
            const auto answers = co_await inquiry.answers(asked);
            // Another window of the same program may have had the focus.
            if (objectIn(answers[1]) != view.object) continue;
            if (!has(statesIn(answers[0]).value_or(0), State::selected)) continue;
            items.objects = {candidate};
            co_return items;
        }
    }
    items.objects = co_await scan(inquiry, view);
    co_return items;
}

std::vector<platform::Accessible> platform::FrameReader::likelyItems() const
{
    return {focused_, item_};
}

platform::Task<std::vector<platform::Accessible>> platform::FrameReader::scan(Inquiry& inquiry,
                                                                              View view)
{
    std::vector<Accessible> selected;
    const QDBusMessage askChildren = childrenQuestion(view.object);
    auto children = objectsIn(co_await inquiry.answer(askChildren), kMostScanned);
    if (!children) co_return selected;
    std::size_t step = 1;
    if (kind_.manager == FileManager::pcmanfmQt) {
        // Every item has a child for each column, seen or not; the first one is the name.
        const QDBusMessage askColumnCount = columnCountQuestion(view.object);
        const auto columns = numberIn(co_await inquiry.answer(askColumnCount));
        step = std::max<std::size_t>(columns.value_or(1), 1);
    }
    std::vector<Accessible> items;
    for (std::size_t i = 0; i < children->size(); i += step) items.push_back((*children)[i]);
    for (std::size_t first = 0; first < items.size(); first += kMostAtOnce) {
        const std::size_t end = std::min(first + kMostAtOnce, items.size());
        std::vector<QDBusMessage> questions;
        for (std::size_t i = first; i < end; i++) questions.push_back(statesQuestion(items[i]));
        const auto answers = co_await inquiry.answers(questions);
        for (std::size_t i = first; i < end; i++) {
            if (has(statesIn(answers[i - first]).value_or(0), State::selected) &&
                selected.size() < kMostSelected)
                selected.push_back(items[i]);
        }
    }
    co_return selected;
}

std::optional<std::string> platform::FrameReader::pathOfName(const QString& name)
{
    for (std::size_t i = 0; i < folders_.size(); i++) {
        auto path = pathOfShownItem(folders_[i], name);
        if (!path) continue;
        // The folder that holds what is selected is the right one; it is asked first from now on.
        std::rotate(folders_.begin(), folders_.begin() + static_cast<long>(i),
                    folders_.begin() + static_cast<long>(i) + 1);
        return path;
    }
    return std::nullopt;
}

platform::Task<std::optional<std::string>> platform::FrameReader::pathOf(Inquiry& inquiry,
                                                                         Accessible item)
{
    if (item.isNull()) co_return std::nullopt;
    const auto questions = together(nameQuestion(item), statesQuestion(item));
    const auto answers = co_await inquiry.answers(questions);
    const auto name = textIn(answers[0]);
    if (!name) co_return std::nullopt;
    item_ = item;
    namedPart_ = item;
    partName_ = *name;
    // Nemo's icons do not.
    tellsItsState_ = has(statesIn(answers[1]).value_or(0), State::selected);
    auto path = pathOfName(*name);
    if (!path) path = co_await pathByNamesInside(inquiry, item);
    co_return path;
}

// An item that is put together from parts has its name in one of them.
platform::Task<std::optional<std::string>> platform::FrameReader::pathByNamesInside(
    Inquiry& inquiry, Accessible item)
{
    constexpr int kDeepest = 6;
    constexpr std::size_t kMostParts = 16;  // on one level
    std::vector<Accessible> level = {item};
    for (int depth = 0; depth < kDeepest && !level.empty(); depth++) {
        std::vector<QDBusMessage> questions;
        for (const Accessible& object : level) questions.push_back(childrenQuestion(object));
        const auto childLists = co_await inquiry.answers(questions);
        level.clear();
        for (const QDBusMessage& list : childLists) {
            for (Accessible& child :
                 objectsIn(list, kMostParts).value_or(std::vector<Accessible>{}))
                if (!child.isNull() && level.size() < kMostParts) level.push_back(std::move(child));
        }
        questions.clear();
        for (const Accessible& object : level) questions.push_back(nameQuestion(object));
        const auto names = co_await inquiry.answers(questions);
        for (std::size_t i = 0; i < level.size(); i++) {
            const auto name = textIn(names[i]);
            if (!name || name->isEmpty()) continue;
            auto path = pathOfName(*name);
            if (!path) continue;
            namedPart_ = level[i];
            partName_ = *name;
            co_return path;
        }
    }
    co_return std::nullopt;
}
