#include "app/notice.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace pinorama {
namespace {
void fit(QLabel* words)
{
    words->setFixedHeight(words->heightForWidth(words->width()));
}

// Words that are shown whole, however narrow the window is, and take no more room than that.
class WholeWords : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QLabel::resizeEvent(event);
        fit(this);
    }
};
}  // namespace

Notice::Notice(const QString& name, QWidget* parent)
    : QFrame(parent),
      words_(new WholeWords(this)),
      buttons_(new QHBoxLayout),
      dismissButton_(new QPushButton(tr("&Dismiss"), this))
{
    setObjectName(name);
    words_->setObjectName(name + QStringLiteral("Words"));
    dismissButton_->setObjectName(name + QStringLiteral("DismissButton"));
    setFrameShape(QFrame::StyledPanel);
    words_->setWordWrap(true);
    words_->setTextFormat(Qt::PlainText);
    words_->setTextInteractionFlags(Qt::TextSelectableByMouse);

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
    words_->setText(words);
    setAccessibleName(words);
    if (!isVisible()) return;
    fit(words_);
    announce();
}

// A screen reader reads it out and leaves the focus where it is.
void Notice::announce()
{
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

}  // namespace pinorama
