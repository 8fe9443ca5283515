// The window that is on its way to the screen before its views are in it.

#include "tests/app/controller_fixture.h"
#include "tests/support/toolkit.h"

#include "app/command_line.h"
#include "app/requests.h"

#include <QApplication>
#include <QEvent>
#include <QLocale>
#include <QMenuBar>
#include <QTranslator>

using namespace pinorama;

namespace {
// Tells what was in a window when it was painted first.
class FirstPaint : public QObject {
public:
    explicit FirstPaint(QMainWindow* window) : window_(window) { window->installEventFilter(this); }

    bool hasCome = false;
    bool hadViews = false;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && !hasCome) {
            hasCome = true;
            const QWidget* content = window_->centralWidget();
            hadViews = content != nullptr && content->isVisible();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QMainWindow* window_;
};

void expectEverythingToBeShown(const MainWindow& window)
{
    const auto views = window.contentView->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    EXPECT_GT(views.size(), 25);
    for (const QWidget* view : views) {
        EXPECT_EQ(view->isVisible(), view != window.placeMap) << view->objectName().toStdString();
    }
    EXPECT_TRUE(window.mainMenu->isVisible());
}

void expectTheSizeOfAWindowMadeAtOnceInEveryLanguage()
{
    QStringList files = test::translations();
    ASSERT_FALSE(files.isEmpty());
    files.prepend(QString());
    for (const QString& file : files) {
        SCOPED_TRACE(file.toStdString());
        QTranslator translator;
        if (!file.isEmpty()) {
            ASSERT_TRUE(translator.load(QLatin1String(":/i18n/") + file));
            QCoreApplication::installTranslator(&translator);
        }
        QGuiApplication::setLayoutDirection(QLocale(translator.language()).textDirection());
        const std::unique_ptr<MainWindow> window = MainWindow::showAhead();
        window->furnish();
        EXPECT_EQ(window->size(), MainWindow().size());
    }
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}
}  // namespace

TEST(showAhead, showsAWindowWithoutViews)
{
    const std::unique_ptr<MainWindow> window = MainWindow::showAhead();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->centralWidget(), nullptr);
    EXPECT_EQ(window->windowTitle(), QLatin1String("Pinorama"));
}

TEST(showAhead, isPaintedWithItsViews)
{
    const std::unique_ptr<MainWindow> window = MainWindow::showAhead();
    FirstPaint paint(window.get());
    window->furnish();
    EXPECT_FALSE(paint.hasCome);
    EXPECT_TRUE(test::waitUntil([&] { return paint.hasCome; }));
    EXPECT_TRUE(paint.hadViews);
    expectEverythingToBeShown(*window);
}

TEST(showAhead, isTheWindowOfTheController)
{
    std::unique_ptr<MainWindow> window = MainWindow::showAhead();
    MainWindow* const shown = window.get();
    AppController controller(nullptr, nullptr, std::move(window));
    EXPECT_EQ(controller.myWindow, shown);
    EXPECT_EQ(controller.fileNameField, shown->fileNameField);
    controller.showMainWindow();
    QCoreApplication::processEvents();
    expectEverythingToBeShown(*shown);
    EXPECT_FALSE(shown->geoTagField->pixmap().isNull());
    const QWidget* focus = shown->focusWidget();
    EXPECT_TRUE(focus == nullptr || focus == shown);
}

TEST(showAhead, needsNoOtherSize)
{
    const std::unique_ptr<MainWindow> window = MainWindow::showAhead();
    const QSize before = window->size();
    window->furnish();
    EXPECT_EQ(window->size(), before);
}

// Some languages need more room with the wide font that a machine without any other has.
TEST(showAhead, becomesAsLargeAsAWindowMadeAtOnceInEveryLanguageAndFont)
{
    const QFont usual = QApplication::font();
    for (const char* family : {"DejaVu Sans", "Noto Sans", "monospace"}) {
        SCOPED_TRACE(family);
        QFont font = usual;
        font.setFamily(QLatin1String(family));
        QApplication::setFont(font);
        expectTheSizeOfAWindowMadeAtOnceInEveryLanguage();
    }
    QApplication::setFont(usual);
}

TEST(showAhead, growsForALargeFont)
{
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSizeF(3 * usual.pointSizeF());
    QApplication::setFont(large);
    const QSize usualSize = MainWindow::showAhead()->size();
    const std::unique_ptr<MainWindow> window = MainWindow::showAhead();
    window->furnish();
    const QSize needed = window->sizeHint();
    EXPECT_GE(window->width(), needed.width());
    EXPECT_GE(window->height(), needed.height());
    QApplication::setFont(usual);
    EXPECT_GT(usualSize.width(), MainWindow::showAhead()->width());
}

TEST(furnish, doesNothingToAWindowThatHasItsViews)
{
    MainWindow window;
    const QWidget* content = window.centralWidget();
    ASSERT_NE(content, nullptr);
    window.furnish();
    EXPECT_EQ(window.centralWidget(), content);
    EXPECT_FALSE(window.isVisible());
}

TEST(opensWindow, tellsWhetherTheWindowComesToTheScreen)
{
    struct Row {
        const char* name;
        CommandLine line;
        bool expected;
    };
    CommandLine picture;
    picture.paths = {"/one.jpg"};
    CommandLine service;
    service.service = true;
    CommandLine text = service;
    text.serviceText = "/one.jpg";
    CommandLine serviceWithPicture = service;
    serviceWithPicture.paths = {"/one.jpg"};
    CommandLine action = picture;
    action.action = "home";
    for (const Row& row : {Row{"nothing", {}, true}, Row{"a picture", picture, true},
                           Row{"the service", service, false}, Row{"a text", text, true},
                           Row{"the service and a picture", serviceWithPicture, true},
                           Row{"an action", action, false}}) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(opensWindow(row.line), row.expected);
    }
}
