#include "app/shown_text.h"

#include "tests/support/mirrored.h"

#include <gtest/gtest.h>

using namespace pinorama;

namespace {
QString filledUp(const QString& end, qsizetype length)
{
    return QString(length - end.size(), QLatin1Char('x')) + end;
}

constexpr QChar kEllipsis(0x2026);
}  // namespace

TEST(shownText, leavesATextAloneThatIsShortEnough)
{
    for (const QString& text :
         {QString(), QStringLiteral("Rome"), filledUp(QStringLiteral("end"), kMaxShownLength)})
        EXPECT_EQ(shownText(text), text);
}

TEST(shownText, cutsALongerTextAtItsMaximum)
{
    const QString most = filledUp(QStringLiteral("end"), kMaxShownLength);
    EXPECT_EQ(shownText(most + QLatin1Char('x')), most + kEllipsis);
    EXPECT_EQ(shownText(most.repeated(40)), most + kEllipsis);
}

TEST(shownText, showsWhatWouldChangeTheOrderOfOthers)
{
    EXPECT_EQ(shownText(QStringLiteral("a\u202egpj.exe")), QStringLiteral("a\ufffdgpj.exe"));
    EXPECT_EQ(shownText(QStringLiteral("\u2067a\u2069\u202bb\u202c")),
              QStringLiteral("\ufffda\ufffd\ufffdb\ufffd"));
    EXPECT_EQ(shownText(QStringLiteral("\u05d0\u200f1\u200e")),
              QStringLiteral("\u05d0\u200f1\u200e"));
}

TEST(shownText, showsControlCharacters)
{
    EXPECT_EQ(shownText(QStringLiteral("\u001b[m\u009b\u007f")),
              QStringLiteral("\ufffd[m\ufffd\ufffd"));
    EXPECT_EQ(shownText(QStringLiteral("a\r\nb\tc")), QStringLiteral("a\r\nb\tc"));
}

TEST(shownText, keepsCharactersWhole)
{
    const QString family = QStringLiteral("\U0001f468\u200d\U0001f469\u200d\U0001f467");
    for (const QString& character :
         {QStringLiteral("e\u0301\u0323"), QStringLiteral("\U0001f600"), family,
          QStringLiteral("\U0001f1e9\U0001f1ea"), QStringLiteral("\r\n")}) {
        for (qsizetype beyond = 1; beyond < character.size(); beyond++) {
            const QString before(kMaxShownLength + beyond - character.size(), QLatin1Char('x'));
            EXPECT_EQ(shownText(before + character + QStringLiteral("more")), before + kEllipsis)
                << character.toStdString() << " from " << beyond;
        }
    }
}

TEST(shownText, cutsACharacterWithoutEndButNoCodePoint)
{
    const QString marks = QStringLiteral("e") + QString(65000, QChar(0x0301));
    EXPECT_EQ(shownText(marks), marks.first(kMaxShownLength) + kEllipsis);
    const QString joined =
        QStringLiteral("x\U0001f468\u200d") + QStringLiteral("\U0001f468\u200d").repeated(20000);
    const QString shown = shownText(joined);
    EXPECT_GE(shown.size(), kMaxShownLength - 64);
    EXPECT_LE(shown.size(), kMaxShownLength + 1);
    EXPECT_TRUE(shown.isValidUtf16());
}

TEST(isolated, leavesATextAloneWhereEverythingIsReadFromLeftToRight)
{
    for (const QString& text : {QString(), QStringLiteral("a.jpg"), QStringLiteral("/a/1.jpg")}) {
        EXPECT_EQ(isolated(text), text);
        EXPECT_EQ(isolatedPath(text), text);
    }
}

TEST(isolated, keepsTheOrderOfATextAndOfTheWordsAroundIt)
{
    EXPECT_EQ(isolated(QStringLiteral("\u05d0.jpg")), QStringLiteral("\u2068\u05d0.jpg\u2069"));
    EXPECT_EQ(isolated(QStringLiteral("\U0001e900")), QStringLiteral("\u2068\U0001e900\u2069"))
        << "a letter of two units";
    const test::Mirrored mirrored;
    EXPECT_EQ(isolated(QStringLiteral("a.jpg")), QStringLiteral("\u2068a.jpg\u2069"));
    EXPECT_EQ(isolated(QStringLiteral("1.jpg")), QStringLiteral("\u20681.jpg\u2069"));
    EXPECT_EQ(isolated(QString()), QString());
}

TEST(isolatedPath, keepsTheFoldersInTheirOrder)
{
    EXPECT_EQ(isolatedPath(QStringLiteral("/\u05d0/b/\u05d1.jpg")),
              QStringLiteral("\u2066/\u2068\u05d0\u2069/b/\u2068\u05d1.jpg\u2069\u2069"));
    const test::Mirrored mirrored;
    EXPECT_EQ(isolatedPath(QStringLiteral("/a/b")),
              QStringLiteral("\u2066/\u2068a\u2069/\u2068b\u2069\u2069"));
}

TEST(withoutIsolation, givesTheTextAsItWas)
{
    const test::Mirrored mirrored;
    for (const QString& text : {QString(), QStringLiteral("/a/\u05d0\u200f.jpg")}) {
        EXPECT_EQ(withoutIsolation(isolated(text)), text);
        EXPECT_EQ(withoutIsolation(isolatedPath(text)), text);
    }
}
