#include "app/accessibility_notice.h"

#include "app/app_controller.h"
#include "app/main_window.h"
#include "platform/desktop/accessibility_advice.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

using platform::AccessibilityAdvice;

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

AccessibilityNotice::AccessibilityNotice(const QString& fileManager, QWidget* parent)
    : QFrame(parent),
      fileManager_(fileManager),
      words_(new WholeWords(this)),
      switchButton_(new QPushButton(tr("S&witch On"), this)),
      dismissButton_(new QPushButton(tr("&Dismiss"), this))
{
    setObjectName(QStringLiteral("accessibilityNotice"));
    words_->setObjectName(QStringLiteral("accessibilityWords"));
    switchButton_->setObjectName(QStringLiteral("switchAccessibilityButton"));
    dismissButton_->setObjectName(QStringLiteral("dismissNoticeButton"));
    setFrameShape(QFrame::StyledPanel);
    words_->setWordWrap(true);
    words_->setTextFormat(Qt::PlainText);
    words_->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(switchButton_);
    buttons->addWidget(dismissButton_);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(words_);
    rows->addLayout(buttons);

    connect(switchButton_, &QPushButton::clicked, this, [this] {
        switchButton_->setEnabled(false);
        Q_EMIT switchWanted();
    });
    connect(dismissButton_, &QPushButton::clicked, this, &AccessibilityNotice::dismissed);
    say(tr("The selection in %1 can be followed once accessibility is on. That is a lasting "
           "setting "
           "of your desktop; restart the file manager after switching it on.")
            .arg(fileManager_));
}

void AccessibilityNotice::showSwitched(bool isOn)
{
    if (switchButton_->hasFocus()) dismissButton_->setFocus();
    switchButton_->hide();
    say(isOn
            ? tr("Accessibility is on. Restart %1, or log in again, and its selection is followed.")
                  .arg(fileManager_)
            : tr("Accessibility could not be switched on. The manual tells how to do it by hand."));
}

void AccessibilityNotice::showEvent(QShowEvent* event)
{
    QFrame::showEvent(event);
    announce();
}

void AccessibilityNotice::say(const QString& words)
{
    words_->setText(words);
    setAccessibleName(words);
    if (!isVisible()) return;
    fit(words_);
    announce();
}

// A screen reader reads it out and leaves the focus where it is.
void AccessibilityNotice::announce()
{
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void app::offerAccessibility(AccessibilityAdvice& advice, AppController& controller)
{
    const auto show = [&advice, &controller](const QString& fileManager) {
        auto* notice = new AccessibilityNotice(fileManager, controller.myWindow);
        controller.myWindow->windowLayout->addWidget(notice);
        QObject::connect(notice, &AccessibilityNotice::switchWanted, &advice,
                         &AccessibilityAdvice::switchOn);
        QObject::connect(&advice, &AccessibilityAdvice::switched, notice,
                         &AccessibilityNotice::showSwitched);
        QObject::connect(notice, &AccessibilityNotice::dismissed, notice, [notice] {
            notice->hide();
            notice->deleteLater();
        });
        // Who does not want to follow anything has no use for it.
        QObject::connect(controller.syncCheckbox, &QCheckBox::toggled, notice,
                         &QWidget::setVisible);
    };
    QObject::connect(&advice, &AccessibilityAdvice::needed, &controller, show);
    QObject::connect(controller.syncCheckbox, &QCheckBox::toggled, &advice,
                     &AccessibilityAdvice::setWanted);
    advice.setWanted(controller.syncCheckbox->isChecked());
}
