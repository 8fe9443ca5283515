#include "tests/support/toolkit.h"

#include <QDir>

void test::Toolkit::SetUp()
{
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", platform_);
    application_ = std::make_unique<QApplication>(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
}

void test::Toolkit::TearDown()
{
    application_.reset();
}

QStringList test::translations()
{
    QStringList files = QDir(QStringLiteral(":/i18n")).entryList({QStringLiteral("*.qm")});
    files.removeOne(QStringLiteral("pinorama_en.qm"));
    return files;
}
