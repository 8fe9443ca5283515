#include "selection/selected_items.h"

#include "selection/status_text.h"

#include <QDBusConnection>

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
constexpr std::size_t kMostSelected = 64;    // items whose paths are told
constexpr std::size_t kMostScanned = 20000;  // items of a view that are looked at one by one
constexpr std::size_t kMostAtOnce = 64;      // questions that wait for an answer

Witness nameWitness(const Accessible& object, const QString& name)
{
    return {nameQuestion(object),
            [name](const QDBusMessage& answer) { return textIn(answer) == name; }};
}

Witness countWitness(const QDBusMessage& question, std::uint32_t count)
{
    return {question, [count](const QDBusMessage& answer) { return numberIn(answer) == count; }};
}
}  // namespace

Task<SelectedItems> SelectedItemsReader::read(Inquiry& inquiry, View view,
                                              std::vector<Accessible> likely)
{
    SelectedItems selected;
    switch (view.access) {
    case ViewAccess::selection: selected = co_await readSelection(inquiry, view); break;
    case ViewAccess::table: selected = co_await readTable(inquiry, view); break;
    case ViewAccess::states: selected = co_await readStates(inquiry, view, likely); break;
    case ViewAccess::opaque: selected = co_await readStatus(inquiry); break;
    }
    if (selected.items.size() == 1) vouchFor(selected.items.front(), view, &selected.witnesses);
    co_return selected;
}

Task<SelectedItems> SelectedItemsReader::readSelection(Inquiry& inquiry, View view)
{
    SelectedItems selected;
    const std::vector<QDBusMessage> asked =
        together(selectedCountQuestion(view.object), selectedChildQuestion(view.object, 0),
                 statesQuestion(view.object));
    const auto answers = co_await inquiry.answers(asked);
    const auto count = numberIn(answers[0]);
    const auto states = statesIn(answers[2]);
    const State shown = isGtk4Object(view.object) ? State::visible : State::showing;
    if (!count || !states || !has(*states, shown)) co_return selected;
    selected.isKnown = true;
    // Nautilus goes through all items of the folder to count.
    if (!isGtk4Object(view.object))
        selected.witnesses.push_back(countWitness(selectedCountQuestion(view.object), *count));
    if (*count == 0) co_return selected;

    std::vector<QDBusMessage> questions;
    for (std::size_t i = 1; i < std::min<std::size_t>(*count, kMostSelected); i++)
        questions.push_back(selectedChildQuestion(view.object, static_cast<int>(i)));
    std::vector<QDBusMessage> children = co_await inquiry.answers(questions);
    children.insert(children.begin(), answers[1]);
    for (const QDBusMessage& child : children) {
        // Some programs count right and yet give nothing for all but the first.
        const Accessible object = objectIn(child).value_or(Accessible{});
        NamedItem item = co_await named(inquiry, object);
        selected.items.push_back(std::move(item));
    }
    if (*count == 1 && !selected.items.front().path) {
        // The item has no name of its own; the status bar may tell it.
        SelectedItems told = co_await readStatus(inquiry);
        told.witnesses.insert(told.witnesses.end(), selected.witnesses.begin(),
                              selected.witnesses.end());
        if (told.path) co_return told;
    }
    co_return selected;
}

Task<SelectedItems> SelectedItemsReader::readTable(Inquiry& inquiry, View view)
{
    SelectedItems selected;
    const QDBusMessage askSelectedRows = selectedRowsQuestion(view.object);
    const auto rows = numbersIn(co_await inquiry.answer(askSelectedRows), kMostSelected);
    const QDBusMessage askStates = statesQuestion(view.object);
    const auto states = statesIn(co_await inquiry.answer(askStates));
    if (!rows || !states || !has(*states, State::showing)) co_return selected;
    selected.isKnown = true;
    if (rows->size() < kMostSelected) {
        selected.witnesses.push_back(countWitness(selectedRowCountQuestion(view.object),
                                                  static_cast<std::uint32_t>(rows->size())));
    }
    for (const int row : *rows) {
        std::optional<NamedItem> cell;
        // The column of the names is not always the first; the others hold pictures, sizes, dates.
        for (int column = 0; column < 4; column++) {
            const QDBusMessage askCell = cellQuestion(view.object, row, column);
            const auto object = objectIn(co_await inquiry.answer(askCell));
            if (!object) continue;
            NamedItem candidate = co_await named(inquiry, *object);
            const bool isItem = candidate.path.has_value();
            if (!cell || isItem) cell = std::move(candidate);
            if (isItem) break;
        }
        selected.items.push_back(cell.value_or(NamedItem{}));
    }
    co_return selected;
}

Task<SelectedItems> SelectedItemsReader::readStatus(Inquiry& inquiry)
{
    SelectedItems selected;
    selected.isKnown = true;
    const auto questions = questionsAbout(layout_->statusTexts, nameQuestion);
    const auto answers = co_await inquiry.answers(questions);
    for (std::size_t i = 0; i < answers.size(); i++) {
        const auto text = textIn(answers[i]);
        if (!text) {
            selected.isKnown = false;
            continue;
        }
        selected.witnesses.push_back(nameWitness(layout_->statusTexts[i], *text));
        for (const QString& name : quotedNames(*text)) {
            if (!selected.path) selected.path = folder_.pathOf(name);
        }
    }
    co_return selected;
}

Task<SelectedItems> SelectedItemsReader::readStates(Inquiry& inquiry, View view,
                                                    std::vector<Accessible> likely)
{
    SelectedItems selected;
    if (!layout_->statusTexts.empty()) {
        selected = co_await readStatus(inquiry);
        co_return selected;
    }
    // Dolphin's view counts as showing in every tab; what holds it does in the one in front.
    const QDBusMessage askStates = statesQuestion(view.above.back());
    const auto isShowing = statesIn(co_await inquiry.answer(askStates));
    if (!isShowing || !has(*isShowing, State::showing)) co_return selected;
    selected.isKnown = true;
    const auto askIsOne = dolphin_.isOneSelectedQuestion();
    if (askIsOne) {
        inquiry.askAlong(QDBusConnection::sessionBus(), *askIsOne);
        const std::vector<QDBusMessage> nothingElse;
        const auto told = co_await inquiry.answers(nothingElse);
        const auto isOne = DolphinWindow::truthIn(told.front());
        selected.witnesses.push_back({*askIsOne,
                                      [isOne](const QDBusMessage& answer) {
                                          return DolphinWindow::truthIn(answer) == isOne;
                                      },
                                      true});
        if (isOne == false) co_return selected;
        // Nearly always the selected item has the focus as well.
        for (const Accessible& candidate : likely) {
            if (candidate.isNull() || !isOne) continue;
            const std::vector<QDBusMessage> asked =
                together(statesQuestion(candidate), parentQuestion(candidate));
            const auto answers = co_await inquiry.answers(asked);
            // Another window of the same program may have had the focus.
            if (objectIn(answers[1]) != view.object) continue;
            if (!has(statesIn(answers[0]).value_or(0), State::selected)) continue;
            NamedItem item = co_await named(inquiry, candidate);
            selected.items.push_back(std::move(item));
            co_return selected;
        }
    }
    const std::vector<Accessible> found = co_await scan(inquiry, view);
    for (const Accessible& object : found) {
        NamedItem item = co_await named(inquiry, object);
        selected.items.push_back(std::move(item));
    }
    co_return selected;
}

Task<std::vector<Accessible>> SelectedItemsReader::scan(Inquiry& inquiry, View view)
{
    std::vector<Accessible> selected;
    const QDBusMessage askChildren = childrenQuestion(view.object);
    auto children = objectsIn(co_await inquiry.answer(askChildren), kMostScanned);
    if (!children) co_return selected;
    std::size_t step = 1;
    if (manager_ == FileManager::pcmanfmQt) {
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

Task<NamedItem> SelectedItemsReader::named(Inquiry& inquiry, Accessible item)
{
    NamedItem named;
    if (item.isNull()) co_return named;
    const auto questions = together(nameQuestion(item), statesQuestion(item));
    const auto answers = co_await inquiry.answers(questions);
    const auto name = textIn(answers[0]);
    if (!name) co_return named;
    named.item = item;
    named.part = item;
    named.name = *name;
    named.tellsItsState = has(statesIn(answers[1]).value_or(0), State::selected);
    named.path = folder_.pathOf(*name);
    if (!named.path) named = co_await namedInside(inquiry, named);
    co_return named;
}

void SelectedItemsReader::vouchFor(const NamedItem& item, const View& view, Witnesses* witnesses)
{
    if (item.item.isNull()) return;
    witnesses->push_back(nameWitness(item.part, item.name));
    if (item.tellsItsState) {
        witnesses->push_back({statesQuestion(item.item), [](const QDBusMessage& answer) {
                                  return has(statesIn(answer).value_or(0), State::selected);
                              }});
        return;
    }
    // Nemo's icons do not tell.
    witnesses->push_back(
        {selectedChildQuestion(view.object, 0),
         [object = item.item](const QDBusMessage& answer) { return objectIn(answer) == object; }});
}

// An item that is put together from parts has its name in one of them.
Task<NamedItem> SelectedItemsReader::namedInside(Inquiry& inquiry, NamedItem item)
{
    constexpr int kDeepest = 6;
    constexpr std::size_t kMostParts = 16;  // on one level
    std::vector<Accessible> level = {item.item};
    for (int depth = 0; depth < kDeepest && !level.empty(); depth++) {
        const auto childQuestions = questionsAbout(level, childrenQuestion);
        const auto childLists = co_await inquiry.answers(childQuestions);
        level.clear();
        for (const QDBusMessage& list : childLists) {
            for (Accessible& child :
                 objectsIn(list, kMostParts).value_or(std::vector<Accessible>{}))
                if (!child.isNull() && level.size() < kMostParts) level.push_back(std::move(child));
        }
        const auto nameQuestions = questionsAbout(level, nameQuestion);
        const auto names = co_await inquiry.answers(nameQuestions);
        for (std::size_t i = 0; i < level.size(); i++) {
            const auto name = textIn(names[i]);
            if (!name || name->isEmpty()) continue;
            auto path = folder_.pathOf(*name);
            if (!path) continue;
            item.part = level[i];
            item.name = *name;
            item.path = std::move(path);
            co_return item;
        }
    }
    co_return item;
}

}  // namespace pinorama
