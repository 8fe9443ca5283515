#include "app/file_dialogs.h"

#include "tests/app/controller_fixture.h"

#include <QAction>
#include <QFileDialog>
#include <QLineEdit>

#include <gtest/gtest.h>

#include <fstream>

using namespace pinorama;

namespace {
class FileDialogs : public test::ControllerTest {
protected:
    QFileDialog* dialog() { return controller.myWindow->findChild<QFileDialog*>(); }

    // The toolkit's own dialog has widgets, also while it is hidden; a foreign one has none.
    static bool isOfTheToolkit(const QFileDialog* dialog)
    {
        return dialog != nullptr &&
               dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")) != nullptr;
    }
};

// True when a library is mapped into this process whose name contains `part`.
bool isLoaded(const std::string& part)
{
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        if (line.find(part) != line.npos) return true;
    }
    return false;
}
}  // namespace

TEST_F(FileDialogs, areOfTheToolkitAndLoadNoDecoder)
{
    EXPECT_TRUE(QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs));
    controller.myWindow->openAction->trigger();
    EXPECT_TRUE(isOfTheToolkit(dialog()));
    delete dialog();

    showPicture("a.jpg", {.lat = 33.9, .latRef = "S", .lon = 18.4, .lonRef = "W"});
    controller.exportKMLButton->click();
    EXPECT_TRUE(isOfTheToolkit(dialog()));
    delete dialog();

    for (const char* library : {"libgdk_pixbuf", "libgtk-3", "libgtk-4"})
        EXPECT_FALSE(isLoaded(library)) << library;
}

TEST_F(FileDialogs, areThoseOfThePortalInASnap)
{
    {
        const test::ScopedVariable snap("SNAP", "/snap/pinorama/1");
        refuseForeignDialogs();
        EXPECT_FALSE(QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs));
    }
    refuseForeignDialogs();
    EXPECT_TRUE(QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs));
}
