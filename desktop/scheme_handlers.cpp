#include "desktop/scheme_handlers.h"

#include "base/whole_file.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>

#include <algorithm>
#include <set>
#include <string_view>
#include <vector>

namespace pinorama {
namespace {
constexpr std::size_t kMaxListSize = 8u << 20;  // bytes; a full desktop has a tenth of a megabyte

std::string_view trimmed(std::string_view text)
{
    const std::size_t start = text.find_first_not_of(" \t\r");
    if (start == text.npos) return {};
    return text.substr(start, text.find_last_not_of(" \t\r") - start + 1);
}

// The part up to the separator, which is removed from `rest` together with it.
std::string_view takePart(std::string_view* rest, char separator)
{
    const std::size_t end = std::min(rest->find(separator), rest->size());
    const std::string_view part = rest->substr(0, end);
    rest->remove_prefix(std::min(end + 1, rest->size()));
    return trimmed(part);
}

// The programs that a list names for a type, by the name of their desktop entry.
struct ListedPrograms {
    std::vector<std::string> added{};
    std::vector<std::string> removed{};
};

ListedPrograms programsIn(const QString& path, const std::string& type)
{
    const auto content = readWholeFile(QFile::encodeName(path).toStdString(), kMaxListSize);
    ListedPrograms programs;
    if (!content) return programs;
    bool removes = false;
    for (std::string_view rest = *content; !rest.empty();) {
        std::string_view line = takePart(&rest, '\n');
        if (line.starts_with('[')) {
            removes = line == "[Removed Associations]";
        } else if (takePart(&line, '=') == type) {
            while (!line.empty()) {
                const std::string_view name = takePart(&line, ';');
                if (!name.empty()) (removes ? programs.removed : programs.added).emplace_back(name);
            }
        }
    }
    return programs;
}

// The lists, the most important one first.
QStringList listFiles(const QStringList& applicationFolders)
{
    QStringList names;
    const QString desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").toLower();
    for (const QString& desktop : desktops.split(QLatin1Char(':'), Qt::SkipEmptyParts)) {
        names.append(QLatin1Char('/') + desktop + QStringLiteral("-mimeapps.list"));
    }
    names.append(QStringLiteral("/mimeapps.list"));
    QStringList files;
    for (const QString& folder :
         QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation)) {
        for (const QString& name : names) files.append(folder + name);
    }
    for (const QString& folder : applicationFolders) {
        for (const QString& name : names) files.append(folder + name);
        files.append(folder + QStringLiteral("/mimeinfo.cache"));
    }
    return files;
}

// An entry in a subfolder has a dash in its name where its path has a slash.
bool isInstalled(const std::string& program, const QStringList& applicationFolders)
{
    if (program.find('/') != program.npos || !program.ends_with(".desktop")) return false;
    QString name = QFile::decodeName(program.c_str());
    qsizetype dash = -1;
    do {
        if (dash >= 0) name[dash] = QLatin1Char('/');
        for (const QString& folder : applicationFolders) {
            if (QFileInfo(folder + QLatin1Char('/') + name).isFile()) return true;
        }
        dash = name.indexOf(QLatin1Char('-'), dash + 1);
    } while (dash >= 0);
    return false;
}
}  // namespace

bool hasSchemeHandler(const std::string& scheme)
{
    return hasTypeHandler("x-scheme-handler/" + scheme);
}

bool hasTypeHandler(const std::string& type)
{
    if (QFile::exists(QStringLiteral("/.flatpak-info")) || qEnvironmentVariableIsSet("SNAP"))
        return true;
    const QStringList folders =
        QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    std::set<std::string> removed;
    for (const QString& file : listFiles(folders)) {
        const ListedPrograms programs = programsIn(file, type);
        for (const std::string& program : programs.added) {
            if (!removed.contains(program) && isInstalled(program, folders)) return true;
        }
        removed.insert(programs.removed.begin(), programs.removed.end());
    }
    return false;
}

}  // namespace pinorama
