#include "app/foot_line.h"

#include "app/main_window.h"
#include "app/whole_words.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QPushButton>

#include <algorithm>

namespace pinorama {

FootLine::FootLine(QWidget* parent)
    : QFrame(parent), words_(new WholeWords(this)), button_(new QPushButton(this))
{
    setObjectName(QStringLiteral("footLine"));
    words_->setObjectName(QStringLiteral("footLineWords"));
    button_->setObjectName(QStringLiteral("footLineButton"));
    button_->setVisible(false);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(words_, 1);
    row->addWidget(button_);

    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    setVisible(false);
    connect(button_, &QPushButton::clicked, this, [this] {
        // A copy: what it does may say something else.
        if (!lines_.empty()) std::function<void()>(lines_.back().offer.run)();
    });
}

void FootLine::say(Topic topic, const QString& words, const FootOffer& offer)
{
    const auto said =
        std::ranges::find_if(lines_, [topic](const Line& line) { return line.topic == topic; });
    if (said != lines_.end()) {
        // What is looked at again and again says the same each time; who asks again wants to hear.
        if (said->words == words && topic != Topic::action) return;
        lines_.erase(said);
    }
    lines_.push_back({topic, words, offer});
    showLast();
}

void FootLine::takeBack(Topic topic)
{
    if (std::erase_if(lines_, [topic](const Line& line) { return line.topic == topic; }) > 0)
        showLast();
}

bool FootLine::says(Topic topic) const
{
    return std::ranges::any_of(lines_, [topic](const Line& line) { return line.topic == topic; });
}

QString FootLine::words() const
{
    return lines_.empty() ? QString() : lines_.back().words;
}

void FootLine::showLast()
{
    const FootOffer offer = lines_.empty() ? FootOffer() : lines_.back().offer;
    button_->setText(offer.label);
    button_->setVisible(!offer.label.isEmpty());
    setAccessibleName(words());
    setVisible(!lines_.empty());
    words_->say(words());
    if (lines_.empty()) return;
    // A screen reader reads it out and leaves the focus where it is.
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

FootLine& footLine(MainWindow& window)
{
    auto* line = window.findChild<FootLine*>();
    if (line == nullptr) {
        line = new FootLine(window.centralWidget());
        window.windowLayout->addWidget(line);
    }
    return *line;
}

void forgetPicture(MainWindow& window)
{
    auto* line = window.findChild<FootLine*>();
    if (line == nullptr) return;
    line->takeBack(FootLine::Topic::action);
    line->takeBack(FootLine::Topic::picture);
}

}  // namespace pinorama
