// What the window says of globe programs that do not show the place.

#include "app/globe_notice.h"

#include "app/foot_line.h"
#include "tests/app/controller_fixture.h"
#include "tests/support/toolkit.h"

#include <QTranslator>

using namespace pinorama;

namespace {
using Failure = GlobePrograms::Failure;

constexpr Failure kFailures[] = {Failure::notStarted, Failure::notWritten, Failure::notAppeared,
                                 Failure::notAnswering};

class sayOfGlobes : public testing::Test {
protected:
    std::string words() const
    {
        const auto* line = window.findChild<FootLine*>();
        return line == nullptr ? "" : line->words().toStdString();
    }

    test::RecordingOpener opener;
    GlobePrograms globes{opener};
    MainWindow window;
};
}  // namespace

TEST_F(sayOfGlobes, saysAtTheFootOfTheWindowWhyThereIsNothingToSee)
{
    pinorama::sayOfGlobes(globes, window);
    const char* const expected[] = {
        "The globe program cannot be started.", "The file for the globe program cannot be written.",
        "Marble was started, but has not appeared yet.", "Marble is running, but does not answer."};
    for (std::size_t i = 0; i < std::size(kFailures); ++i) {
        Q_EMIT globes.failed(kFailures[i]);
        EXPECT_EQ(words(), expected[i]);
    }
}

TEST_F(sayOfGlobes, takesBackWhatIsNotTrueAnyMore)
{
    pinorama::sayOfGlobes(globes, window);
    Q_EMIT globes.appeared();
    EXPECT_EQ(words(), "");
    Q_EMIT globes.failed(Failure::notAppeared);
    Q_EMIT globes.appeared();
    EXPECT_EQ(words(), "");

    Q_EMIT globes.failed(Failure::notAppeared);
    footLine(window).say(FootLine::Topic::action, QStringLiteral("Another action failed."));
    Q_EMIT globes.appeared();
    EXPECT_EQ(words(), "Another action failed.");
}

TEST_F(sayOfGlobes, showsWhileOneStarts)
{
    pinorama::sayOfGlobes(globes, window);
    Q_EMIT globes.busyChanged(true);
    EXPECT_EQ(window.cursor().shape(), Qt::BusyCursor);
    Q_EMIT globes.busyChanged(false);
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
}

TEST(wordsOfGlobe, speaksEveryLanguage)
{
    const QStringList files = test::translations();
    ASSERT_GE(files.size(), 9);
    for (const QString& file : files) {
        SCOPED_TRACE(file.toStdString());
        QTranslator translator;
        ASSERT_TRUE(translator.load(QStringLiteral(":/i18n/") + file));
        for (const Failure failure : kFailures) {
            const QString english = wordsOfGlobe(failure);
            QCoreApplication::installTranslator(&translator);
            EXPECT_NE(wordsOfGlobe(failure), english);
            QCoreApplication::removeTranslator(&translator);
        }
    }
}
