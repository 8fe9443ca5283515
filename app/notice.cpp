#include "app/notice.h"

#include "app/whole_words.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace pinorama {

Notice::Notice(const QString& name, QWidget* parent)
    : QFrame(parent),
      words_(new WholeWords(this)),
      buttons_(new QHBoxLayout),
      //: A button that takes a notice in the window away
      dismissButton_(new QPushButton(tr("&Dismiss"), this))
{
    setObjectName(name);
    words_->setObjectName(name + QStringLiteral("Words"));
    dismissButton_->setObjectName(name + QStringLiteral("DismissButton"));
    setFrameShape(QFrame::StyledPanel);

    buttons_->addStretch();
    buttons_->addWidget(dismissButton_);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(words_);
    rows->addLayout(buttons_);
    connect(dismissButton_, &QPushButton::clicked, this, &Notice::dismissed);
}

void Notice::addButton(QPushButton* button)
{
    constexpr int kBehindStretch = 1;
    buttons_->insertWidget(kBehindStretch, button);
    setTabOrder(button, dismissButton_);
}

void Notice::showEvent(QShowEvent* event)
{
    QFrame::showEvent(event);
    announce();
}

void Notice::say(const QString& words)
{
    words_->say(words);
    setAccessibleName(words);
    if (isVisible()) announce();
}

// A screen reader reads it out and leaves the focus where it is.
void Notice::announce()
{
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

}  // namespace pinorama
