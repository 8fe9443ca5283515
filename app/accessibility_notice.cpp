#include "app/accessibility_notice.h"

#include "app/app_controller.h"
#include "app/main_window.h"
#include "app/shown_text.h"
#include "selection/accessibility_advice.h"

#include <QPushButton>

namespace pinorama {

AccessibilityNotice::AccessibilityNotice(const QString& fileManager, QWidget* parent)
    : Notice(QStringLiteral("accessibilityNotice"), parent),
      fileManager_(fileManager),
      //: Button of the notice about accessibility: switches it on
      switchButton_(new QPushButton(tr("S&witch On"), this))
{
    switchButton_->setObjectName(QStringLiteral("switchAccessibilityButton"));
    addButton(switchButton_);
    connect(switchButton_, &QPushButton::clicked, this, [this] {
        switchButton_->setEnabled(false);
        Q_EMIT switchWanted();
    });
    //: A notice in the window; %1 is the name of a file manager. Accessibility as in the settings
    //: of desktops
    say(tr("Pinorama can follow the selection in %1 once accessibility is on. This is a permanent "
           "setting of your desktop; restart the file manager after switching it on.")
            .arg(isolated(shownText(fileManager_))));
}

void AccessibilityNotice::showSwitched(bool isOn)
{
    if (switchButton_->hasFocus()) dismissButton()->setFocus();
    switchButton_->hide();
    if (isOn) {
        //: A notice in the window; %1 is the name of a file manager
        say(tr("Accessibility is on. Restart %1 or log in again; Pinorama then follows its "
               "selection.")
                .arg(isolated(shownText(fileManager_))));
    } else {
        //: A notice in the window
        say(tr(
            "Accessibility could not be switched on. The manual explains how to do it by hand."));
    }
}

void offerAccessibility(AccessibilityAdvice& advice, AppController& controller)
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

}  // namespace pinorama
