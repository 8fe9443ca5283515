// The languages of the texts in this tree.

#pragma once

#include <QDir>
#include <QFileInfo>
#include <QString>

#include <set>
#include <string>

namespace test {

// A file of the tree, by its path in it.
inline std::string pathOf(const std::string& inTree)
{
    return PINORAMA_SOURCE_FOLDER "/" + inTree;
}

// What stands for '*' in the names of the files PREFIX*.ts of a folder.
inline std::set<std::string> languagesOf(const std::string& folder, const std::string& prefix)
{
    std::set<std::string> names;
    for (const QFileInfo& file : QDir(QString::fromStdString(pathOf(folder)))
                                     .entryInfoList({QString::fromStdString(prefix + "*.ts")}))
        names.insert(file.completeBaseName().toStdString().substr(prefix.size()));
    return names;
}

inline std::set<std::string> languagesButEnglish()
{
    return languagesOf("resources/texts", "texts_");
}

// English is the one that the others are measured by.
inline std::set<std::string> languages()
{
    auto names = languagesButEnglish();
    names.insert("en");
    return names;
}

}  // namespace test
