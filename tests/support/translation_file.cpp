#include "tests/support/translation_file.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QXmlStreamReader>

namespace {
bool isAt(const QXmlStreamReader& xml, const char* element)
{
    return xml.name() == QLatin1String(element);
}

std::string textOf(QXmlStreamReader& xml)
{
    return xml.readElementText().toStdString();
}

// Reads the element "translation", whose text is either its own or that of its plural forms.
void readForms(QXmlStreamReader& xml, test::Translation& into)
{
    into.isFinished = !xml.attributes().hasAttribute(QLatin1String("type"));
    if (!into.hasPlural) {
        into.forms = {textOf(xml)};
        return;
    }
    while (xml.readNextStartElement()) into.forms.push_back(textOf(xml));
}
}  // namespace

std::vector<test::Translation> test::translationsIn(const std::string& path)
{
    std::vector<Translation> all;
    QFile file(QString::fromStdString(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    QXmlStreamReader xml(&file);
    std::string context;
    Translation one;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (isAt(xml, "name")) context = textOf(xml);
        if (isAt(xml, "message")) {
            one = {};
            one.context = context;
            one.hasPlural = xml.attributes().hasAttribute(QLatin1String("numerus"));
        }
        if (isAt(xml, "source")) one.source = textOf(xml);
        if (isAt(xml, "extracomment")) one.comment = textOf(xml);
        if (isAt(xml, "translation")) {
            readForms(xml, one);
            all.push_back(one);
        }
    }
    EXPECT_FALSE(xml.hasError()) << path << ": " << xml.errorString().toStdString();
    return all;
}

std::string test::languageOfTranslations(const std::string& path)
{
    QFile file(QString::fromStdString(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    QXmlStreamReader xml(&file);
    EXPECT_TRUE(xml.readNextStartElement()) << path;
    return xml.attributes().value(QLatin1String("language")).toString().toStdString();
}
