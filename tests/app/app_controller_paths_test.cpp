// The ways that a path takes into the program.

#include "base/file_uri.h"
#include "lib/files/path_text.h"
#include "tests/app/controller_fixture.h"

#include <QCheckBox>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include <functional>

using namespace pinorama;

namespace {
using applicationOpenFile = test::ControllerTest;
using openFile = test::ControllerTest;
using acceptPath = test::ControllerTest;
using updateSelection = test::ControllerTest;
using getFinderSelection = test::ControllerTest;
using showMainWindow = test::ControllerTest;
using MainWindowDrop = test::ControllerTest;

void drop(MainWindow* window, const QMimeData& data)
{
    // A drop follows the entering of its drag.
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &enter);
    QDropEvent event(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &event);
}
}  // namespace

TEST_F(acceptPath, acceptsPicturesByTheirExtension)
{
    for (const char* name : {"photo.JPG", "photo.jpg", "photo.JPEG", "x.Nef", "x.DNG", "a.zip.jpg"})
        EXPECT_TRUE(controller.acceptPath(test::text(name).get())) << name;
    for (const char* name : {"photo.tif", "photo.png", "photo", "photo.", "archive.jpg.zip",
                             "/a.jpg/readme", ".jpg", "x.heic", ""})
        EXPECT_FALSE(controller.acceptPath(test::text(name).get())) << name;
    EXPECT_FALSE(controller.acceptPath(nullptr));
}

TEST_F(applicationOpenFile, bringsTheWindowForwardAndTellsWhetherTheFileIsNew)
{
    const test::Text path = test::text(folder.write("a.jpg", ""));
    EXPECT_FALSE(controller.myWindow->isVisible());
    EXPECT_TRUE(controller.applicationOpenFile(path.get()));
    EXPECT_TRUE(controller.myWindow->isVisible());

    controller.myWindow->close();
    EXPECT_FALSE(controller.myWindow->isVisible());
    EXPECT_FALSE(controller.applicationOpenFile(path.get())) << "shown already";
    EXPECT_TRUE(controller.myWindow->isVisible());

    EXPECT_FALSE(controller.applicationOpenFile(test::text(folder.write("a.txt", "")).get()));
    EXPECT_EQ(shown(controller.fileNameField), "a.txt");
    EXPECT_FALSE(controller.applicationOpenFile(nullptr));
}

TEST_F(openFile, takesAPlainTextAsAPathAsItStands)
{
    (void)folder.write(" a%20b.jpg ", "");
    QMimeData pasteboard;
    pasteboard.setText(QString::fromStdString(folder.file(" a%20b.jpg ")));
    controller.openFile(&pasteboard);
    EXPECT_TRUE(controller.myWindow->isVisible());
    EXPECT_EQ(shown(controller.fileNameField), " a%20b.jpg ");
    EXPECT_EQ(test::utf8(controller.lastPath), folder.file(" a%20b.jpg "));

    pasteboard.setText(QStringLiteral("file:///x.jpg"));
    controller.openFile(&pasteboard);
    EXPECT_EQ(test::utf8(controller.lastPath), "file:///x.jpg") << "no address is decoded";
}

TEST_F(openFile, withoutAPlainTextOnlyTheWindowComesForward)
{
    EXPECT_FALSE(show(folder.write("a.txt", "")));
    QMimeData empty, files, markup, emptyText;
    files.setUrls({QUrl::fromLocalFile(QStringLiteral("/x.jpg"))});
    markup.setHtml(QStringLiteral("<b>/x.jpg</b>"));
    emptyText.setText(QString());
    for (const QMimeData* pasteboard :
         std::initializer_list<const QMimeData*>{&empty, &files, &markup, &emptyText, nullptr}) {
        controller.myWindow->close();
        controller.openFile(pasteboard);
        EXPECT_TRUE(controller.myWindow->isVisible());
        EXPECT_EQ(test::utf8(controller.lastPath), folder.file("a.txt"));
    }
}

TEST_F(MainWindowDrop, showsTheLastFile)
{
    controller.myWindow->show();
    QMimeData data;
    const std::string list = fileURIOfPath(folder.file("a.jpg")) + "\r\nhttps://example.org/\r\n" +
                             fileURIOfPath(folder.file("b \xff.jpg")) + "\r\n";
    data.setData(QStringLiteral("text/uri-list"), QByteArray::fromStdString(list));
    drop(controller.myWindow, data);
    EXPECT_EQ(shown(controller.fileNameField), "b \xEF\xBF\xBD.jpg");
}

TEST_F(MainWindowDrop, ignoresWhatIsNoFile)
{
    controller.myWindow->show();
    QMimeData data;
    data.setText(folder.path().c_str());
    drop(controller.myWindow, data);
    QMimeData address;
    address.setUrls({QUrl(QStringLiteral("https://example.org/a.jpg"))});
    drop(controller.myWindow, address);
    EXPECT_EQ(controller.lastPath, nullptr);

    QDragEnterEvent refused(QPoint(50, 50), Qt::CopyAction, &address, Qt::LeftButton,
                            Qt::NoModifier);
    refused.ignore();
    QCoreApplication::sendEvent(controller.myWindow, &refused);
    EXPECT_FALSE(refused.isAccepted());
    QMimeData file;
    file.setUrls({QUrl::fromLocalFile(QStringLiteral("/x.jpg"))});
    QDragEnterEvent accepted(QPoint(50, 50), Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
    accepted.ignore();
    QCoreApplication::sendEvent(controller.myWindow, &accepted);
    EXPECT_TRUE(accepted.isAccepted());
}

TEST_F(updateSelection, showsASingleSelectedItem)
{
    selection.paths = {folder.write("a.jpg", "")};
    controller.updateSelection();
    EXPECT_EQ(shown(controller.fileNameField), "a.jpg");
    EXPECT_FALSE(controller.myWindow->isVisible())
        << "the selection does not bring the window back";

    controller.fileSizeField->setText(QStringLiteral("untouched"));
    controller.updateSelection();
    EXPECT_EQ(shown(controller.fileSizeField), "untouched") << "the same selection again";
}

TEST_F(updateSelection, keepsWhatWasOpenedUntilTheSelectionChanges)
{
    const std::string opened = folder.write("opened.jpg", "");
    QMimeData text;
    text.setText(QString::fromStdString(opened));
    QMimeData files;
    files.setData(QStringLiteral("text/uri-list"),
                  QByteArray::fromStdString(fileURIOfPath(opened) + "\r\n"));
    const struct {
        const char* name;
        std::function<void()> open;
    } rows[] = {
        {"a file of the desktop",
         [&] { (void)controller.applicationOpenFile(test::text(opened).get()); }},
        {"a file in bytes", [&] { controller.openPath(opened); }},
        {"a text", [&] { controller.openFile(&text); }},
        {"a drop", [&] { drop(controller.myWindow, files); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        selection.paths = {folder.write("a.jpg", "")};
        controller.updateSelection();
        row.open();
        for (int tick = 0; tick < 3; tick++) controller.updateSelection();
        EXPECT_EQ(shown(controller.fileNameField), "opened.jpg");
        selection.paths = {folder.write("b.jpg", "")};
        controller.updateSelection();
        EXPECT_EQ(shown(controller.fileNameField), "b.jpg");
    }
}

TEST_F(updateSelection, severalAndNoneKeepWhatIsShown)
{
    selection.paths = {folder.write("a.jpg", "")};
    controller.updateSelection();
    selection.paths = {folder.file("b.jpg"), folder.file("c.jpg")};
    controller.updateSelection();
    EXPECT_EQ(shown(controller.fileNameField), "a.jpg");
    selection.paths = {};
    controller.updateSelection();
    EXPECT_EQ(shown(controller.fileNameField), "a.jpg");
}

TEST_F(updateSelection, aFolderPassesToo)
{
    selection.paths = {folder.path() + "/"};
    controller.updateSelection();
    EXPECT_EQ(shown(controller.fileSizeField), "n.a.");
    EXPECT_EQ(folder.path().substr(folder.path().rfind('/') + 1), shown(controller.fileNameField));
}

TEST_F(updateSelection, doesNotEvenAskWhileTheCheckBoxIsOffOrMixed)
{
    selection.paths = {folder.write("a.jpg", "")};
    controller.syncCheckbox->setChecked(false);
    controller.updateSelection();
    controller.syncCheckbox->setTristate(true);
    controller.syncCheckbox->setCheckState(Qt::PartiallyChecked);
    controller.updateSelection();
    EXPECT_EQ(selection.questions, 0);
    EXPECT_EQ(controller.lastPath, nullptr);

    // A file that is opened shows all the same.
    EXPECT_TRUE(controller.applicationOpenFile(test::text(folder.file("a.jpg")).get()));
    controller.syncCheckbox->setCheckState(Qt::Checked);
    controller.updateSelection();
    EXPECT_EQ(selection.questions, 1);
}

TEST_F(updateSelection, keepsTheFieldsUpToDateWhileTheWindowIsClosed)
{
    controller.showMainWindow();
    controller.myWindow->close();
    selection.paths = {folder.write("a.jpg", "")};
    controller.updateSelection();
    EXPECT_EQ(shown(controller.fileNameField), "a.jpg");
}

TEST_F(updateSelection, theTimerFindsANewSelectionWithinOneTick)
{
    controller.gUpdateTimer->start();
    selection.paths = {folder.write("a.jpg", "")};
    EXPECT_TRUE(test::waitUntil([&] { return shown(controller.fileNameField) == "a.jpg"; }));
    controller.myWindow->close();
    EXPECT_TRUE(controller.gUpdateTimer->isActive());
}

TEST_F(getFinderSelection, listsPathsInTheirOrderAndNullForNone)
{
    selection.paths = {"/b \xff.jpg", "/a/"};
    const ObjectHolder<TovArrayRef> paths(controller.getFinderSelection());
    ASSERT_EQ(TovArrayGetCount(paths.get()), 2);
    EXPECT_EQ(pathBytes(asString(TovArrayGetValue(paths.get(), 0))), "/b \xff.jpg");
    EXPECT_EQ(test::utf8(asString(TovArrayGetValue(paths.get(), 1))), "/a/");
    selection.paths = {};
    EXPECT_EQ(controller.getFinderSelection(), nullptr);
}

TEST(getFinderSelectionWithoutASource, isNull)
{
    AppController controller;
    EXPECT_EQ(controller.getFinderSelection(), nullptr);
}

TEST_F(showMainWindow, bringsBackAClosedAndAMinimisedWindow)
{
    controller.showMainWindow();
    controller.myWindow->showMinimized();
    controller.showMainWindow();
    EXPECT_FALSE(controller.myWindow->isMinimized());
    controller.myWindow->close();
    controller.showMainWindow();
    EXPECT_TRUE(controller.myWindow->isVisible());
}

TEST_F(showMainWindow, aMaximisedWindowComesBackMaximised)
{
    controller.myWindow->showMaximized();
    controller.myWindow->setWindowState(controller.myWindow->windowState() | Qt::WindowMinimized);
    controller.showMainWindow();
    EXPECT_FALSE(controller.myWindow->isMinimized());
    EXPECT_TRUE(controller.myWindow->isMaximized());
}
