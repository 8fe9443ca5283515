#include "app/path_intake.h"

#include "tests/app/controller_fixture.h"

#include <QMimeData>

// The suites are named after what they test, which they hide here.
namespace pinorama::tests {

class PathIntake : public testing::Test {
protected:
    PathIntake()
    {
        QObject::connect(&intake_, &pinorama::PathIntake::pathFound,
                         [this](const std::string& path) { found_.push_back(path); });
        QObject::connect(&intake_, &pinorama::PathIntake::pathOpened,
                         [this](const std::string& path) { opened_.push_back(path); });
        window_.syncCheckbox->setChecked(true);
    }

    using Paths = std::vector<std::string>;

    MainWindow window_;
    test::ChosenSelection selection_;
    pinorama::PathIntake intake_{window_, &selection_};
    Paths found_;
    Paths opened_;
};

TEST_F(PathIntake, passesASelectionOfOneOnInItsBytes)
{
    for (const Paths& selected : {Paths{}, Paths{"/a.jpg", "/b.jpg"}, Paths{"/\xff.jpg"}}) {
        selection_.paths = selected;
        intake_.passSelection();
    }
    EXPECT_EQ(found_, Paths{"/\xff.jpg"});
    EXPECT_TRUE(opened_.empty());
}

TEST_F(PathIntake, asksNobodyWhileTheCheckBoxIsOff)
{
    selection_.paths = {"/a.jpg"};
    window_.syncCheckbox->setTristate(true);
    for (const Qt::CheckState state : {Qt::Unchecked, Qt::PartiallyChecked}) {
        window_.syncCheckbox->setCheckState(state);
        intake_.passSelection();
    }
    EXPECT_EQ(selection_.questions, 0);
    EXPECT_TRUE(found_.empty());
}

TEST_F(PathIntake, passesAReportedSelectionOfOneOn)
{
    EXPECT_FALSE(selection_.listener);
    intake_.passSelection();
    ASSERT_TRUE(selection_.listener);
    for (const Paths& reported : {Paths{}, Paths{"/a.jpg", "/b.jpg"}, Paths{"/\xff.jpg"}})
        selection_.listener(reported);
    EXPECT_EQ(found_, Paths{"/\xff.jpg"});
    EXPECT_EQ(selection_.questions, 1);
}

TEST_F(PathIntake, listensToNobodyWhileTheCheckBoxIsOff)
{
    window_.syncCheckbox->setTristate(true);
    for (const Qt::CheckState state : {Qt::Unchecked, Qt::PartiallyChecked}) {
        window_.syncCheckbox->setCheckState(Qt::Checked);
        intake_.passSelection();
        ASSERT_TRUE(selection_.listener);
        const auto listener = selection_.listener;
        window_.syncCheckbox->setCheckState(state);
        listener({"/a.jpg"});
        intake_.passSelection();
        EXPECT_FALSE(selection_.listener);
    }
    intake_.passSelection();
    window_.syncCheckbox->setCheckState(Qt::Checked);
    intake_.passSelection();
    window_.syncCheckbox->setCheckState(Qt::Unchecked);
    EXPECT_FALSE(selection_.listener);
    EXPECT_TRUE(found_.empty());
}

TEST_F(PathIntake, keepsWhatWasOpenedFromReportsToo)
{
    selection_.paths = {"/a.jpg"};
    intake_.passSelection();
    intake_.keepOpened();
    found_.clear();
    selection_.listener({"/a.jpg"});
    EXPECT_EQ(found_, Paths());
    selection_.listener({"/b.jpg"});
    EXPECT_EQ(found_, Paths{"/b.jpg"});
}

TEST_F(PathIntake, listensUntilItIsDestroyed)
{
    {
        pinorama::PathIntake shortLived(window_, &selection_);
        shortLived.passSelection();
        EXPECT_TRUE(selection_.listener);
    }
    EXPECT_FALSE(selection_.listener);
}

TEST_F(PathIntake, livesWithoutASelection)
{
    pinorama::PathIntake alone(window_, nullptr);
    alone.passSelection();
    EXPECT_EQ(alone.copySelection(), nullptr);
}

TEST_F(PathIntake, passesAPlainTextOnAsItStands)
{
    QMimeData text;
    text.setText(QStringLiteral(" /a b%20.jpg\n"));
    intake_.passText(&text);
    QMimeData empty;
    empty.setText(QString());
    QMimeData files;
    files.setData(QStringLiteral("text/uri-list"), "file:///c.jpg\r\n");
    for (const QMimeData* other :
         std::initializer_list<const QMimeData*>{&empty, &files, nullptr}) {
        intake_.passText(other);
    }
    EXPECT_EQ(found_, Paths{" /a b%20.jpg\n"});
}

TEST_F(PathIntake, keepsAReportedFileUntilTheSelectionChanges)
{
    selection_.paths = {"/a.jpg"};
    intake_.passSelection();
    intake_.passReported("/\xff.jpg");
    intake_.passSelection();
    intake_.passReported("/c.jpg");
    intake_.passSelection();
    EXPECT_EQ(found_, (Paths{"/a.jpg", "/\xff.jpg", "/c.jpg"}));
    selection_.paths = {"/b.jpg"};
    intake_.passSelection();
    EXPECT_EQ(found_.back(), "/b.jpg");
    EXPECT_TRUE(opened_.empty());
}

TEST_F(PathIntake, passesNoReportedFileOnWhileTheCheckBoxIsOff)
{
    window_.syncCheckbox->setChecked(false);
    intake_.passReported("/a.jpg");
    EXPECT_TRUE(found_.empty());
}

TEST_F(PathIntake, passesADroppedFileOnAsOpened)
{
    Q_EMIT window_.fileDropped("/\xff.jpg");
    EXPECT_EQ(opened_, Paths{"/\xff.jpg"});
    EXPECT_TRUE(found_.empty());
}

TEST_F(PathIntake, keepsWhatWasOpenedUntilTheSelectionChanges)
{
    const struct {
        const char* name;
        Paths before, after;
        bool isPassed;
    } rows[] = {
        {"the same file", {"/a.jpg"}, {"/a.jpg"}, false},
        {"another file", {"/a.jpg"}, {"/b.jpg"}, true},
        {"a first file", {}, {"/a.jpg"}, true},
        {"one of several", {"/a.jpg", "/b.jpg"}, {"/a.jpg"}, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        selection_.paths = row.before;
        intake_.passSelection();
        found_.clear();
        intake_.keepOpened();
        intake_.passSelection();
        EXPECT_EQ(found_, Paths());
        EXPECT_EQ(intake_.copySelection(), nullptr);
        selection_.paths = row.after;
        intake_.passSelection();
        EXPECT_EQ(found_, row.isPassed ? row.after : Paths());
    }
}

TEST_F(PathIntake, aSelectionOfSeveralOrNoneInBetweenIsAChange)
{
    for (const Paths& between : {Paths{}, Paths{"/a.jpg", "/b.jpg"}}) {
        selection_.paths = {"/a.jpg"};
        intake_.passSelection();
        intake_.keepOpened();
        selection_.paths = between;
        intake_.passSelection();
        found_.clear();
        selection_.paths = {"/a.jpg"};
        intake_.passSelection();
        EXPECT_EQ(found_, Paths{"/a.jpg"});
    }
}

// A file manager that is busy for a moment has not changed its selection.
TEST_F(PathIntake, aSelectionThatIsNotKnownIsNoChange)
{
    selection_.paths = {"/a.jpg"};
    intake_.passSelection();
    found_.clear();
    intake_.keepOpened();
    for (const bool isUnknown : {true, false}) {
        selection_.isUnknown = isUnknown;
        selection_.paths = isUnknown ? Paths() : Paths{"/a.jpg"};
        intake_.passSelection();
    }
    EXPECT_EQ(found_, Paths());
}

// The program starts with a file before any file manager has replied.
TEST_F(PathIntake, theFirstSelectionThatIsKnownAfterwardsIsNoChange)
{
    intake_.keepOpened();
    selection_.isUnknown = true;
    intake_.passSelection();
    selection_.isUnknown = false;
    selection_.paths = {"/a.jpg"};
    intake_.passSelection();
    intake_.passSelection();
    EXPECT_EQ(found_, Paths());
    selection_.paths = {"/b.jpg"};
    intake_.passSelection();
    EXPECT_EQ(found_, Paths{"/b.jpg"});
}

TEST_F(PathIntake, showsTheSelectionAgainWhenTheUserAsksToFollowIt)
{
    selection_.paths = {"/a.jpg"};
    intake_.passSelection();
    found_.clear();
    intake_.keepOpened();
    window_.syncCheckbox->setChecked(false);
    window_.syncCheckbox->setChecked(true);
    intake_.passSelection();
    EXPECT_EQ(found_, Paths{"/a.jpg"});
}

}  // namespace pinorama::tests
