#include "selection/selected_items.h"

#include "selection/status_text.h"

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {

Validator nameValidator(const Accessible& object, const QString& name)
{
    return {nameCall(object), [name](const QDBusMessage& reply) { return textIn(reply) == name; }};
}
}  // namespace

Validator countValidator(const QDBusMessage& call, std::uint32_t count)
{
    return {call, [count](const QDBusMessage& reply) { return numberIn(reply) == count; }};
}

Validators validatorsOf(const NamedItem& item, const View& view)
{
    if (item.item.isNull()) return {};
    Validators validators = {nameValidator(item.part, item.name)};
    if (item.reportsSelected) {
        validators.push_back({statesCall(item.item), [](const QDBusMessage& reply) {
                                  return has(statesIn(reply).value_or(0), State::selected);
                              }});
    } else {
        // The icons of Nemo do not have that state; the view knows.
        validators.push_back(
            {selectedChildCall(view.object, 0), [object = item.item](const QDBusMessage& reply) {
                 return objectIn(reply) == object;
             }});
    }
    return validators;
}

Task<SelectedItems> readSelection(DBusQuery& query, ItemReader& reader, View view)
{
    SelectedItems selected;
    const std::vector<QDBusMessage> firstCalls = callList(
        selectedCountCall(view.object), selectedChildCall(view.object, 0), statesCall(view.object));
    const auto replies = co_await query.replies(firstCalls);
    const auto count = numberIn(replies[0]);
    const auto states = statesIn(replies[2]);
    const State shown = isGtk4Object(view.object) ? State::visible : State::showing;
    if (!count || !states || !has(*states, shown)) co_return selected;
    selected.isKnown = true;
    // Nautilus (the only one with GTK 4) iterates over the whole folder to count, every time.
    if (!isGtk4Object(view.object))
        selected.validators.push_back(countValidator(selectedCountCall(view.object), *count));
    if (*count == 0) co_return selected;

    std::vector<QDBusMessage> calls;
    for (std::size_t i = 1; i < std::min<std::size_t>(*count, kMaxSelected); i++)
        calls.push_back(selectedChildCall(view.object, static_cast<int>(i)));
    std::vector<QDBusMessage> children = co_await query.replies(calls);
    children.insert(children.begin(), replies[1]);
    for (const QDBusMessage& child : children) {
        // Some programs return the right count and yet no object for all but the first item.
        const Accessible object = objectIn(child).value_or(Accessible{});
        NamedItem item = co_await reader.named(query, object);
        selected.items.push_back(std::move(item));
    }
    if (*count == 1 && !selected.items.front().path) {
        // The item has no name of its own; the status bar may have it.
        SelectedItems named = co_await readStatus(query, reader);
        named.validators.insert(named.validators.end(), selected.validators.begin(),
                                selected.validators.end());
        if (named.path) co_return named;
    }
    co_return selected;
}

Task<SelectedItems> readStatus(DBusQuery& query, ItemReader& reader)
{
    SelectedItems selected;
    selected.isKnown = true;
    const SharedLayout layout = reader.layout();
    const auto calls = callsFor(layout->statusTexts, nameCall);
    const auto replies = co_await query.replies(calls);
    for (std::size_t i = 0; i < replies.size(); i++) {
        const auto text = textIn(replies[i]);
        if (!text) {
            selected.isKnown = false;
            continue;
        }
        selected.validators.push_back(nameValidator(layout->statusTexts[i], *text));
        for (const QString& name : quotedNames(*text)) {
            if (!selected.path) selected.path = co_await reader.folder().pathOf(query, name);
        }
    }
    co_return selected;
}

}  // namespace pinorama
