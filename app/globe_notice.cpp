#include "app/globe_notice.h"

#include "app/foot_line.h"
#include "app/main_window.h"

#include <QCoreApplication>

namespace pinorama {
namespace {
using Failure = GlobePrograms::Failure;

struct GlobeNotice {
    Q_DECLARE_TR_FUNCTIONS(pinorama::GlobeNotice)
};
}  // namespace

void sayOfGlobes(GlobePrograms& globes, MainWindow& window)
{
    QObject::connect(&globes, &GlobePrograms::busyChanged, &window, [&window](bool isBusy) {
        if (isBusy) {
            window.setCursor(Qt::BusyCursor);
        } else {
            window.unsetCursor();
        }
    });
    QObject::connect(&globes, &GlobePrograms::failed, &window, [&window](Failure failure) {
        footLine(window).say(FootLine::Topic::action, wordsOfGlobe(failure));
    });
    QObject::connect(&globes, &GlobePrograms::appeared, &window, [&window] {
        auto* line = window.findChild<FootLine*>();
        // Other words of an action are of a later one.
        if (line != nullptr && line->words() == wordsOfGlobe(Failure::notAppeared))
            line->takeBack(FootLine::Topic::action);
    });
}

QString wordsOfGlobe(Failure failure)
{
    switch (failure) {
    case Failure::notStarted:
        //: The foot of the window
        return GlobeNotice::tr("The globe program cannot be started.");
    case Failure::notWritten:
        //: The foot of the window
        return GlobeNotice::tr("The file for the globe program cannot be written.");
    case Failure::notAppeared:
        //: The foot of the window. Marble is the name of a program
        return GlobeNotice::tr("Marble was started, but has not appeared yet.");
    case Failure::notAnswering: break;
    }
    //: The foot of the window. Marble is the name of a program
    return GlobeNotice::tr("Marble is running, but does not answer.");
}

}  // namespace pinorama
