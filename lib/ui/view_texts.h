// The texts that views show, whatever their class: which kinds a view has, how one is read and how
// one is set. Setting goes through one function, which a test can replace.

#pragma once

#include <QString>

#include <functional>
#include <optional>

class QWidget;

enum class ViewText {
    toolTip,
    item,         // of a pop-up, by index
    placeholder,  // of a field for text
    title,        // of a group box or button
    value,        // what a control shows
};

// The number of items of a pop-up (a combo box, or a button with a menu); nothing for other views.
std::optional<int> cuPopUpItemCount(const QWidget* view);

// The text of that kind; nothing if the view has no such text. `item` is the index in a pop-up.
std::optional<QString> cuViewText(const QWidget* view, ViewText kind, int item = 0);

// Sets a text that the view has; what it has not is left alone.
void cuSetViewText(QWidget* view, ViewText kind, int item, const QString& text);

using ViewTextSetter = std::function<void(QWidget*, ViewText, int, const QString&)>;

// For tests. Puts `setter` in the place of what cuSetViewText does; an empty function puts the
// original back.
void cuReplaceViewTextSetter(ViewTextSetter setter);
