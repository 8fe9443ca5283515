// A loader whose previews arrive in a list, and a reader that is held up.

#pragma once

#include "location/picture_source.h"
#include "pictures/picture_file.h"
#include "previews/picture_reader.h"
#include "previews/preview_loader.h"
#include "tests/previews/preview_fixture.h"
#include "tests/support/reader_signal.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QPixmap>

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// The suite is named after what it tests, which it hides here.
namespace pinorama::tests {
using test::kCorners;
using test::kSize;
using test::quartersOf;

// Holds the reader up, so that no reply comes as long as this is there.
class HeldReader {
public:
    HeldReader()
    {
        cuPictureReader().start();
        test::signalReader(cuPictureReader(), SIGSTOP);
    }
    HeldReader(const HeldReader&) = delete;
    HeldReader& operator=(const HeldReader&) = delete;
    ~HeldReader() { test::signalReader(cuPictureReader(), SIGCONT); }
};

class PreviewLoader : public test::PreviewTest {
protected:
    struct Arrival {
        std::string path;
        QPixmap picture;
        bool isPreview;
    };

    PreviewLoader()
    {
        QObject::connect(&loader_, &pinorama::PreviewLoader::previewReady,
                         [this](const std::string& path, const QPixmap& picture, bool isPreview) {
                             arrivals_.push_back({path, picture, isPreview});
                         });
    }

    void request(const std::string& path, qreal ratio = 1)
    {
        loader_.request(path, PictureFile(path), kSize, ratio);
    }

    // Lets the event loop run until so many pictures have arrived in all.
    void wait(std::size_t count = 1)
    {
        EXPECT_TRUE(test::waitUntil([&] { return arrivals_.size() >= count; }));
    }

    // Shows a picture of a kind that is read where somebody asks for more, without the loss of a
    // process.
    void requestFromTheSandbox(const std::string& path)
    {
        const int failuresBefore = cuPictureReader().failureCount();
        setReadsMoreKinds(true);
        request(path);
        wait();
        setReadsMoreKinds(false);
        EXPECT_EQ(cuPictureReader().failureCount(), failuresBefore);
    }

    // The same for one with the usual quarters.
    void expectQuartersFromTheSandbox(const std::string& path)
    {
        requestFromTheSandbox(path);
        ASSERT_EQ(arrivals_.size(), 1u);
        EXPECT_TRUE(arrivals_[0].isPreview);
        EXPECT_TRUE(test::areNear(quartersOf(arrivals_[0].picture), kCorners));
    }

    // Lets the event loop run until the reader has been asked for a preview after the one with the
    // ticket `last`. The ticket of it.
    static std::uint32_t untilItIsUnderWay(std::uint32_t last = 0)
    {
        const QDeadlineTimer limit(test::kPatience);
        while (cuPictureReader().previewTicket() <= last && !limit.hasExpired()) {
            QCoreApplication::processEvents();
        }
        EXPECT_GT(cuPictureReader().previewTicket(), last);
        return cuPictureReader().previewTicket();
    }

    // Lets the event loop run until nothing more can come.
    static void settle() { test::goOnFor(300); }

    pinorama::PreviewLoader loader_;
    std::vector<Arrival> arrivals_;
};

}  // namespace pinorama::tests
