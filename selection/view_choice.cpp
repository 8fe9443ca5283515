#include "selection/view_choice.h"

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {

constexpr int kDeepestItem = 12;  // steps from a part of an item to the view

// Whether an object is the view or one of the few containers that hold it and nothing else, such as
// its scrolled window. Further up everything belongs to all tabs.
bool isCloseAround(const View& view, const Accessible& object)
{
    constexpr std::size_t kClose = 4;
    if (view.object == object) return true;
    const std::size_t count = std::min(kClose, view.above.size());
    return std::find(view.above.end() - static_cast<long>(count), view.above.end(), object) !=
           view.above.end();
}
}  // namespace

Task<bool> haveFoundSizes(Inquiry& inquiry, std::vector<View> views)
{
    const auto questions =
        questionsAbout(views, [](const View& view) { return sizeQuestion(view.object); });
    const auto answers = co_await inquiry.answers(questions);
    for (std::size_t i = 0; i < answers.size(); i++) {
        if (sizeIn(answers[i]) != views[i].size) co_return false;
    }
    co_return true;
}

Task<std::size_t> paneInUse(Inquiry& inquiry, std::vector<View> views, Accessible touched,
                            std::size_t before)
{
    std::vector<QDBusMessage> questions;
    for (const View& view : views) {
        for (const Accessible& mark : view.focusMarks) questions.push_back(statesQuestion(mark));
    }
    if (!touched.isNull()) questions.push_back(parentQuestion(touched));
    const auto answers = co_await inquiry.answers(questions);

    std::optional<std::size_t> focusedPane;
    std::optional<std::size_t> touchedPane;
    const auto holder = touched.isNull() ? std::nullopt : objectIn(answers.back());
    auto answer = answers.begin();
    for (std::size_t i = 0; i < views.size(); i++) {
        for (std::size_t j = 0; j < views[i].focusMarks.size(); j++, ++answer) {
            if (has(statesIn(*answer).value_or(0), State::focused)) focusedPane = i;
        }
        if (views[i].object == touched || holder == views[i].object) touchedPane = i;
    }
    co_return focusedPane.value_or(touchedPane.value_or(before));
}

Task<std::optional<std::size_t>> viewInFront(Inquiry& inquiry, Accessible frame,
                                             std::vector<View> views, std::size_t before)
{
    const QDBusMessage askExtents = extentsQuestion(views.front().object);
    const auto extents = extentsIn(co_await inquiry.answer(askExtents));
    if (!extents || extents->size.area() == 0) co_return std::nullopt;
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
        const QDBusMessage askObjectAtPoint = objectAtPointQuestion(frame, x, y);
        std::optional<Accessible> object = objectIn(co_await inquiry.answer(askObjectAtPoint));
        if (!object) continue;
        for (int steps = 0; object && steps < kDeepestItem; steps++) {
            for (std::size_t i = 0; i < views.size(); i++) {
                if (isCloseAround(views[i], *object)) co_return i;
            }
            const QDBusMessage askParent = parentQuestion(*object);
            object = objectIn(co_await inquiry.answer(askParent));
        }
        co_return std::nullopt;
    }
    co_return before;  // nothing speaks against the view that was in front before
}

}  // namespace pinorama
