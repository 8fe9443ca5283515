#include "selection/window_folder.h"

#include "base/user_folders.h"
#include "selection/item_name.h"
#include "selection/places.h"

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
constexpr int kLongestPath = 4096;  // UTF-16 units
}  // namespace

Task<bool> WindowFolder::read(Inquiry& inquiry, QString title, SharedLayout layout)
{
    readAt_ = Clock::now();
    if (isDesktop_) {
        likely_ = {desktopFolder()};
        co_return true;
    }
    FolderClues clues;
    clues.title = title;
    const auto questions = questionsAbout(layout->locations, [](const Accessible& entry) {
        // GTK 4 gives nothing for the whole of a text, only for a part that is long enough.
        return textQuestion(entry, isGtk4Object(entry) ? kLongestPath : -1);
    });
    const auto answers = co_await inquiry.answers(questions);
    for (const QDBusMessage& answer : answers) {
        const auto text = textIn(answer);
        if (!text) co_return false;
        clues.locations.push_back(*text);
    }
    likely_ = foldersShown(clues, {}, {});
    if (!noted_.empty()) likely_.push_back(noted_);
    if (!likely_.empty()) co_return true;

    auto rows = co_await readRows(inquiry, layout);
    if (!rows) co_return false;
    clues.rows = std::move(*rows);
    likely_ = foldersShown(clues, places(), foldersWatchedBy(process_));
    co_return true;
}

Task<std::optional<WindowFolder::Rows>> WindowFolder::readRows(Inquiry& inquiry,
                                                               SharedLayout layout)
{
    auto questions = questionsAbout(layout->rowParents, [](const RowParent& parent) {
        return childCountQuestion(parent.object);
    });
    for (const auto& row : layout->rows) {
        for (const PathButton& button : row) {
            questions.push_back(nameQuestion(button.object));
            questions.push_back(statesQuestion(button.object));
        }
    }
    const auto answers = co_await inquiry.answers(questions);
    Rows rows;
    auto answer = answers.begin();
    for (const RowParent& parent : layout->rowParents) {
        if (numberIn(*answer++) != parent.childCount) co_return std::nullopt;
    }
    for (const auto& row : layout->rows) {
        std::vector<RowButton> buttons;
        for (std::size_t i = 0; i < row.size(); i++, answer += 2) {
            const auto name = textIn(answer[0]);
            if (!name) co_return std::nullopt;
            const States states = statesIn(answer[1]).value_or(0);
            buttons.push_back({*name, has(states, State::checked) || has(states, State::pressed)});
        }
        rows.push_back(std::move(buttons));
    }
    co_return rows;
}

std::optional<std::string> WindowFolder::pathOf(const QString& name)
{
    for (std::size_t i = 0; i < likely_.size(); i++) {
        auto path = pathOfShownItem(likely_[i], name);
        if (!path) continue;
        std::rotate(likely_.begin(), likely_.begin() + static_cast<long>(i),
                    likely_.begin() + static_cast<long>(i) + 1);
        return path;
    }
    return std::nullopt;
}

}  // namespace pinorama
