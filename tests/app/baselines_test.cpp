// The baselines of captions and texts in the window.

#include "app/baselines.h"

#include "tests/app/controller_fixture.h"

#include <QLabel>
#include <QTextBlock>
#include <QTextLayout>

using namespace pinorama;

namespace {
using alignBaselinesTest = test::ControllerTest;

// The height of the first baseline of a text in the content of the window.
double baselineOf(const WrappedField& field)
{
    const QTextLine line = field.document()->firstBlock().layout()->lineAt(0);
    return field.mapToParent(field.viewport()->pos()).y() + line.y() + line.ascent();
}

double baselineOf(const QLabel& caption)
{
    QTextLayout layout(caption.text(), caption.font());
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return caption.y() + caption.contentsMargins().top() + line.ascent();
}
}  // namespace

TEST_F(alignBaselinesTest, putsEveryCaptionAndItsTextOnOneLine)
{
    const MainWindow& window = *controller.myWindow;
    EXPECT_TRUE(showPicture("one.jpg", {.lat = 48.1,
                                        .latRef = "N",
                                        .lon = 11.5,
                                        .lonRef = "E",
                                        .city = "\xE3\x83\x9F\xE3\x83\xA5\xE3\x83\xB3",
                                        .caption = "A short caption."}));
    controller.showMainWindow();
    for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
    int count = 0;
    for (const QLabel* caption : window.findChildren<QLabel*>()) {
        const auto* field = qobject_cast<WrappedField*>(caption->buddy());
        if (field == nullptr) continue;
        EXPECT_NEAR(baselineOf(*caption), baselineOf(*field), 1.0)
            << caption->objectName().toStdString();
        ++count;
    }
    EXPECT_EQ(count, 11);
}
