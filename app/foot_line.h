// The line at the foot of the window that says, in words, what an action did not do or has done,
// and why the shown file has no place. It takes no focus and is read out by a screen reader.
// Whoever says something names the topic: of each the last words count, and of several topics those
// that were said last are shown. What is said of the picture and of actions is gone with the next
// picture.
//
//     footLine(window).say(FootLine::Topic::action, tr("No program opens %1.").arg(name));

#pragma once

#include <QFrame>
#include <QString>

#include <cstdint>
#include <functional>
#include <vector>

class QPushButton;

namespace pinorama {

class MainWindow;
class WholeWords;

// What a button beside the words does.
struct FootOffer {
    QString label{};              // empty for no button
    std::function<void()> run{};  // may say something itself
};

class FootLine : public QFrame {
    Q_OBJECT

public:
    explicit FootLine(QWidget* parent = nullptr);

    enum class Topic : std::uint8_t {
        program,    // what it does without being asked; stays until the window is closed
        kind,       // of file that could be read; stays from one such file to the next
        picture,    // the file that is shown
        action,     // what the user asked for last
        selection,  // in the file manager
    };

    // Says something of a topic. To say again what is said already changes nothing, except of an
    // action: it comes to the front, is read out again, and its button does what it was given last.
    void say(Topic topic, const QString& words, const FootOffer& offer = {});

    // Nothing is to be said of a topic any more. The line keeps its room, so that the window stays
    // as it is while one runs through pictures.
    void takeBack(Topic topic);

    bool says(Topic topic) const;

    // What is shown; empty if nothing is.
    QString words() const;

private:
    struct Line {
        Topic topic;
        QString words;
        FootOffer offer;
    };
    void showLast();

    WholeWords* words_;
    QPushButton* button_;
    std::vector<Line> lines_;  // those that were said last are last
};

// The line of the window; made when there is something to say for the first time.
FootLine& footLine(MainWindow& window);

// The next picture is shown: takes back what was said of the one before and of what was done with
// it, if anything.
void forgetPicture(MainWindow& window);

}  // namespace pinorama
