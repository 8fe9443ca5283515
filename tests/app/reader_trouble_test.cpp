// The window with a reader that does harm, and with one that does not start.

#include "base/resource_folder.h"
#include "tests/app/hostile_window.h"
#include "tests/support/environment.h"
#include "tests/support/reader_signal.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <vector>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;

class readerTrouble : public test::HostileWindowTest {
protected:
    std::string faultyReader() const { return programFolder() + "/faulty-reader"; }

    // A program of a few lines of shell.
    std::string script(const std::string& name, const std::string& lines) const
    {
        const std::string path = folder.write(name, "#!/bin/sh\n" + lines + "\n");
        fs::permissions(path, fs::perms::owner_all);
        return path;
    }

    std::string withFault(const std::string& fault) const
    {
        return folder.write("fault.jpg", "FAULT " + fault + "\n");
    }

    // Starts over with another program for a reader.
    void useReader(const std::string& program)
    {
        variable_.reset();
        variable_ = std::make_unique<test::ScopedVariable>("PINORAMA_READER", program.c_str());
        cuPictureReader().stop();
    }

    bool saysThatThereIsNoReader()
    {
        return test::waitUntil([this] {
            return controller.fileIconField->text().startsWith(
                QStringLiteral("Pictures cannot be read: "));
        });
    }

    std::string harm() const { return folder.file("harm"); }

private:
    std::unique_ptr<test::ScopedVariable> variable_;
};
}  // namespace

TEST_F(readerTrouble, aReaderThatDiesShowsAsAnEmptyFieldAndNoMore)
{
    expectGoodPicture();
    for (int i = 0; i < 3; i++) {
        test::signalReader(cuPictureReader(), SIGKILL);
        expectGoodPicture();
    }
}

TEST_F(readerTrouble, noFaultOfTheReaderHarmsTheWindow)
{
    ReaderLimits limits;
    limits.preview.processor = std::chrono::seconds(1);
    cuPictureReader().setLimits(limits);
    useReader(faultyReader());
    const std::string secret = folder.write("secret", "treasure");
    for (const std::string& fault : std::vector<std::string>{
             "open-file " + secret, "write-file " + harm(), "start-program " + harm(),
             "open-socket", "allocate", "make-executable", "crash", "exit", "garbage", "too-much",
             "twice", "large-preview", "nan", "die-afterwards", "half", "loop"}) {
        SCOPED_TRACE(fault);
        EXPECT_TRUE(showsInTime(withFault(fault)));
        expectLocationActions(false);
        expectGoodPicture();
    }
    EXPECT_FALSE(fs::exists(harm()));
}

TEST_F(readerTrouble, theSameFaultsDoHarmWithoutTheSandbox)
{
    useReader(script("unlocked", "exec '" + faultyReader() + "' --without-sandbox"));
    for (const char* fault : {"write-file ", "start-program "}) {
        SCOPED_TRACE(fault);
        fs::remove(harm());
        EXPECT_TRUE(showsInTime(withFault(fault + harm())));
        EXPECT_TRUE(fs::exists(harm())) << "the fault is none, and its test shows nothing";
        expectGoodPicture();
    }
}

TEST_F(readerTrouble, withoutAReaderTheGeneralFactsAreShownAndNothingIsParsed)
{
    ReaderLimits limits;
    limits.start.silence = std::chrono::seconds(1);
    cuPictureReader().setLimits(limits);
    const std::string cases[] = {folder.file("missing"),
                                 folder.write("no-program", "text"),
                                 folder.path(),
                                 script("exits", "exit 1"),
                                 script("never-ready", "exec sleep 60"),
                                 script("talks", "echo Hello, I am a reader >&3; exec sleep 60")};
    for (const std::string& program : cases) {
        SCOPED_TRACE(program);
        useReader(program);
        EXPECT_TRUE(isQuickOfThree(good_, [&] { useReader(program); }));
        EXPECT_TRUE(saysThatThereIsNoReader());
        EXPECT_TRUE(controller.fileIconField->pixmap().isNull());
        EXPECT_EQ(shown(controller.fileNameField), "good.jpg");
        EXPECT_NE(shown(controller.fileSizeField), "n.a.");
        EXPECT_EQ(shown(controller.gpsCoordinateField), "");
        EXPECT_EQ(shown(controller.gpsAltitudeField), "");
        expectLocationActions(false);
        EXPECT_FALSE(show(folder.write("notes.txt", "text")));
        EXPECT_TRUE(saysThatThereIsNoReader());
    }
    // It comes back as soon as there is one.
    useReader(programFolder() + "/pinorama-reader");
    expectGoodPicture();
    EXPECT_EQ(controller.fileIconField->text(), QString());
}

TEST_F(readerTrouble, whatIsNoFileNeedsNoReader)
{
    useReader(folder.file("missing"));
    EXPECT_FALSE(show(folder.path()));
    EXPECT_TRUE(test::waitUntil([this] { return !controller.fileIconField->pixmap().isNull(); }));
    EXPECT_EQ(controller.fileIconField->text(), QString());
}
