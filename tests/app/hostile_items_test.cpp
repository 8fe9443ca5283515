// Items that are no pictures, pictures that do not stay as they are, and arguments of any size,
// through the real window with the real reader.

#include "tests/support/hostile_items.h"
#include "base/file_uri.h"
#include "opener/events/picture_opener.h"
#include "tests/app/hostile_window.h"
#include "tests/support/damaged_pictures.h"
#include "tests/support/restless_file.h"

#include <QCheckBox>
#include <QDropEvent>
#include <QMimeData>

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;

class hostileItems : public test::HostileWindowTest {
protected:
    // How many are open when everything has been made that stays: the reader, and the toolkit's
    // table of types, which it needs for the first icon.
    long descriptorsAtRest()
    {
        (void)showsInTime(folder.path());
        expectGoodPicture();
        rest();
        return openDescriptors();
    }

    void drop(const std::string& uriList)
    {
        QMimeData data;
        data.setData(QStringLiteral("text/uri-list"), QByteArray::fromStdString(uriList));
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        QCoreApplication::sendEvent(controller.myWindow, &enter);
        QDropEvent event(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(controller.myWindow, &event);
    }
};
}  // namespace

TEST_F(hostileItems, showWhatIsKnownOfThemAndAreNotWaitedFor)
{
    const long before = descriptorsAtRest();
    for (const test::HostileItem& item : test::hostileItems(folder)) {
        SCOPED_TRACE(item.what);
        EXPECT_TRUE(showsInTime(item.path));
        EXPECT_EQ(shown(controller.fileSizeField) != "n.a.", item.isRegular);
        EXPECT_EQ(shown(controller.gpsCoordinateField), "");
        expectLocationActions(false);
        expectGoodPicture();
    }
    rest();
    EXPECT_EQ(openDescriptors(), before);
    EXPECT_EQ(readersLost_, 0);
}

TEST_F(hostileItems, withDifficultNamesArePicturesLikeOthers)
{
    for (const std::string& name : {test::longestName(), std::string("\xff\xc3(.jpg"),
                                    std::string("a\nb\tc.jpg"), std::string("%s%n&<b>.jpg")}) {
        SCOPED_TRACE(name);
        fs::copy_file(good_, folder.file(name));
        EXPECT_TRUE(showsInTime(folder.file(name)));
        EXPECT_EQ(shown(controller.gpsAltitudeField), "520 m");
        expectLocationActions(true);
    }
}

TEST_F(hostileItems, thatMayNotBeReadShowTheirGeneralFacts)
{
    expectGoodPicture();
    fs::create_directory(folder.file("locked"));
    const std::string inside = folder.file("locked/inside.jpg");
    const std::string locked = folder.file("locked.jpg");
    fs::copy_file(good_, inside);
    fs::copy_file(good_, locked);
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(locked.c_str(), 0), 0);
    ASSERT_EQ(chmod(folder.file("locked").c_str(), 0), 0);
    {
        // The openers look at files, and the system refuses root nothing.
        const std::string program = openerProgram();
        const std::string drop = geteuid() == 0 ? "setpriv --reuid=65534 --clear-groups " : "";
        const std::string path =
            folder.write("opener", "#!/bin/sh\nexec " + drop + "'" + program + "'\n");
        fs::permissions(path, fs::perms::all);
        const test::ScopedVariable nobody("PINORAMA_OPENER", path.c_str());
        cuPictureOpener().stop();
        EXPECT_TRUE(showsInTime(locked));
        EXPECT_NE(shown(controller.fileSizeField), "n.a.");
        expectLocationActions(false);
        EXPECT_TRUE(showsInTime(inside));
        EXPECT_EQ(shown(controller.fileNameField), "inside.jpg");
        EXPECT_EQ(shown(controller.fileSizeField), "n.a.");
        expectLocationActions(false);
    }
    ASSERT_EQ(chmod(folder.file("locked").c_str(), 0755), 0);
    cuPictureOpener().stop();
    expectGoodPicture();
}

TEST_F(hostileItems, thatChangeBetweenThePropertiesAndThePreviewDoNoHarm)
{
    const std::string bytes = test::soundPictures()[1].bytes;
    const std::string path = folder.write("changing.jpg", bytes);
    for (int i = 0; i < 30; i++) {
        (void)show(path);
        switch (i % 6) {
        case 0: fs::resize_file(path, 100); break;
        case 1: fs::remove(path); break;
        case 2:
            folder.write("changing.jpg", test::damaged(bytes, static_cast<std::uint32_t>(i)));
            break;
        case 3: fs::rename(folder.write("replacement", bytes.substr(0, 500)), path); break;
        case 4: fs::resize_file(path, 0); break;
        default: fs::resize_file(path, 50'000'000);
        }
        EXPECT_TRUE(showsInTime(i % 2 == 0 ? good_ : other_));
        folder.write("changing.jpg", bytes);
    }
    expectGoodPicture();
    EXPECT_EQ(readersLost_, 0);
}

TEST_F(hostileItems, thatNeverRestDoNoHarm)
{
    const std::string path = folder.file("restless.jpg");
    const long before = descriptorsAtRest();
    {
        const test::RestlessFile restless(path, test::soundPictures()[1].bytes);
        for (int i = 0; i < 150; i++) {
            EXPECT_TRUE(showsInTime(path));
            EXPECT_TRUE(showsInTime(i % 2 == 0 ? good_ : other_));
        }
    }
    expectGoodPicture();
    rest();
    EXPECT_EQ(openDescriptors(), before);
    EXPECT_EQ(readersLost_, 0);
}

TEST_F(hostileItems, aFolderThatVanishesTakesItsPictureAlong)
{
    fs::create_directory(folder.file("stick"));
    const std::string path = folder.file("stick/a.jpg");
    fs::copy_file(good_, path);
    (void)show(path);
    fs::remove_all(folder.file("stick"));
    rest();
    EXPECT_EQ(shown(controller.gpsAltitudeField), "520 m") << "what was read stays";
    EXPECT_FALSE(show(path)) << "the same path again";
    EXPECT_TRUE(showsInTime(folder.file("stick/b.jpg")));
    EXPECT_EQ(shown(controller.fileSizeField), "n.a.");
    expectLocationActions(false);
    expectGoodPicture();
}

TEST_F(hostileItems, aPathWithAZeroInItNamesNothing)
{
    const std::string path = good_ + '\0' + ".jpg";
    EXPECT_TRUE(showsInTime(path));
    EXPECT_EQ(shown(controller.gpsCoordinateField), "");
    expectLocationActions(false);
    expectGoodPicture();
}

TEST_F(hostileItems, aSelectionOfAnySizeDoesNoHarm)
{
    controller.syncCheckbox->setChecked(true);
    expectGoodPicture();
    selection.paths.assign(10'000, other_);
    controller.updateSelection();
    EXPECT_EQ(shown(controller.gpsAltitudeField), "520 m") << "several are no selection";
    for (const std::string& path :
         {std::string(1'000'000, 'x'), "/" + std::string(1'000'000, '/') + "a.jpg", std::string(),
          std::string("\0/a.jpg", 7), std::string("../../good.jpg"), std::string(100'000, '\xff'),
          std::string("file:///etc/passwd")}) {
        selection.paths = {path};
        controller.updateSelection();
        expectLocationActions(false);
    }
    selection.paths = {other_};
    controller.updateSelection();
    EXPECT_EQ(shown(controller.gpsAltitudeField), "7 m");
}

TEST_F(hostileItems, aDropOfAnySizeShowsTheLastFile)
{
    controller.myWindow->show();
    std::string list;
    for (int i = 0; i < 10'000; i++) list += fileURIOfPath(other_) + "\r\n";
    drop(list + fileURIOfPath(good_) + "\r\n");
    EXPECT_EQ(shown(controller.gpsAltitudeField), "520 m");
    for (const std::string& nothing :
         {"file:///" + std::string(1'000'000, 'x') + ".jpg\r\n", "file://" + other_ + "%00\r\n",
          std::string(1'000'000, '%'), std::string(1'000'000, '\0'),
          "file://elsewhere" + other_ + "\r\n"}) {
        drop(nothing);
        EXPECT_EQ(test::utf8(controller.lastPath), good_) << "nothing was dropped";
    }
    expectGoodPicture();
}

TEST_F(hostileItems, aTextOfAnySizeIsTakenAsAPath)
{
    for (const QString& sent :
         {QString(1'000'000, QLatin1Char('x')), QString(1000, QChar(0)), QString(QChar(0xd800)),
          QString::fromStdString(good_) + QChar(0) + QStringLiteral(".jpg")}) {
        QMimeData pasteboard;
        pasteboard.setText(sent);
        controller.openFile(&pasteboard);
        expectLocationActions(false);
    }
    expectGoodPicture();
}
