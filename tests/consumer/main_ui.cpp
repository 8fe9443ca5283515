// A program of another project that uses the toolkit half of the library.

#include <lib/strings/string_holder.h>
#include <lib/strings/tov_bytes.h>
#include <lib/ui/cocoa_utils.h>

#include <QApplication>
#include <QLabel>

#include <cstdio>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QLabel label;
    const StringHolder text(TovStringFromUTF8("Rome", 4));
    cocoaUtils::setStringValue(&label, text.get());
    std::printf("label %s\n", label.text().toUtf8().constData());
    return label.text() == QStringLiteral("Rome") ? 0 : 1;
}
