#include "lib/ui/cocoa_utils.h"

#include "base/descriptor.h"
#include "base/utf8.h"
#include "lib/files/file_comment.h"
#include "lib/files/file_reference.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_bytes.h"
#include "lib/strings/tov_string.h"
#include "lib/ui/qt_text.h"
#include "lib/ui/string_tables.h"
#include "lib/ui/view_texts.h"
#include "lib/ui/view_translation.h"
#include "lib/ui/zip_archive.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPixmap>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;

constexpr std::size_t kMaxPathLength = 2048;  // bytes

// What cocoaUtilsLaunch started.
struct ToolkitPool {
    int argumentCount = 1;
    char name[9] = "pinorama";
    char* arguments[2] = {name, nullptr};
    std::unique_ptr<QApplication> application;
};

ToolkitPool* pool = nullptr;

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

// The absolute path of an item, with its name at the end: "name/" and "." have none there. Empty
// if there is no such path.
fs::path itemAt(const std::string& bytes)
{
    std::error_code error;
    fs::path path = fs::absolute(bytes, error);
    if (!path.has_filename()) path = path.parent_path();
    if (path.filename() == "." || path.filename() == "..") path = fs::canonical(path, error);
    return error || !path.has_filename() ? fs::path() : path;
}

bool isSameItem(const fs::path& one, const fs::path& other)
{
    struct stat facts = {};
    struct stat otherFacts = {};
    return lstat(one.c_str(), &facts) == 0 && lstat(other.c_str(), &otherFacts) == 0 &&
           facts.st_dev == otherFacts.st_dev && facts.st_ino == otherFacts.st_ino;
}

// True when an archive at `target` would take the place of the original, or go away with it.
bool wouldEndIn(const fs::path& original, const fs::path& target, bool deletesOriginal)
{
    if (isSameItem(original, target)) return true;
    if (!deletesOriginal) return false;
    std::error_code error;
    fs::path folder = fs::canonical(target.parent_path(), error);
    for (; folder.has_relative_path(); folder = folder.parent_path()) {
        if (isSameItem(original, folder)) return true;
    }
    return false;
}

// Brings a file or the names in a folder to the disk.
bool flush(const fs::path& path)
{
    const DescriptorHolder file(openDescriptor(path.c_str(), O_RDONLY));
    return file && flushDescriptor(file.get());
}

constexpr std::int16_t kDialogTable = 1100;  // texts marked "##"
constexpr std::int16_t kWordTable = 1001;    // texts marked "+#"

// The table that the marker at the beginning of `text` names; 0 if there is none.
std::int16_t tableOfMarker(TovStringRef text)
{
    // The marker is searched for in the UTF-8 form, so a text without that form is no placeholder.
    if (TovStringGetLength(text) < 3 || TovStringGetUTF8Size(text) < 2) return 0;
    if (TovStringGetUniChar(text, 1) != u'#') return 0;
    switch (TovStringGetUniChar(text, 0)) {
    case u'#': return kDialogTable;
    case u'+': return kWordTable;
    default: return 0;
    }
}

QList<QWidget*> subviewsOf(const QWidget* view)
{
    QList<QWidget*> subviews;
    for (QObject* child : view->children()) {
        if (!child->isWidgetType()) continue;
        auto* subview = static_cast<QWidget*>(child);
        if (!subview->isWindow()) subviews.append(subview);
    }
    return subviews;
}
}  // namespace

TovStringRef cocoaUtils::translateADialogString(TovStringRef text)
{
    const std::int16_t table = tableOfMarker(text);
    if (table == 0) return text;

    const StringHolder digits(TovStringCreateWithSubstring(text, 2, TovStringGetLength(text) - 2));
    const std::int32_t number = TovStringGetIntValue(digits.get());
    if (number == 0) return text;
    // Tested for 0 before it is narrowed, so 65536 means text 0.
    return iuGetIndCFString(table, static_cast<std::int16_t>(number));
}

void cocoaUtils::translateOneView(QWidget* view)
{
    if (view == nullptr) return;
    cuTranslateOwnTexts(view);
    // Setting a text may add or remove views, so the list is taken anew each time.
    for (int i = 0; i < subviewsOf(view).size(); ++i) translateOneView(subviewsOf(view).at(i));
}

void cocoaUtils::translateWindow(QWidget* window, std::uint8_t setTitle)
{
    (void)setTitle;  // the title is never changed
    translateOneView(window);
}

void cocoaUtils::setStringValue(QWidget* control, TovStringRef myString)
{
    if (control == nullptr) return;
    const QString text = myString != nullptr ? cuDisplayText(myString) : QStringLiteral("");
    if (auto* label = qobject_cast<QLabel*>(control)) {
        label->setTextFormat(Qt::PlainText);
    } else if (auto* box = qobject_cast<QComboBox*>(control)) {
        box->isEditable() ? box->setEditText(text) : box->setCurrentText(text);
        return;
    }
    const ViewText kind =
        qobject_cast<QGroupBox*>(control) != nullptr ? ViewText::title : ViewText::value;
    cuSetViewText(control, kind, 0, text);
}

std::int32_t cocoaUtils::compressToZIPFile(TovStringRef source, TovStringRef targetPath,
                                           std::uint8_t deleteOriginal)
{
    constexpr std::int32_t kFailed = 1;
    std::error_code error;
    const fs::path original = itemAt(pathBytes(source));
    const fs::path target = fs::absolute(pathBytes(targetPath), error);
    if (original.empty() || error || wouldEndIn(original, target, deleteOriginal != 0)) {
        return kFailed;
    }

    // The archiver leaves an empty archive when the source is missing, so it works on a file of its
    // own beside the target, which replaces the target only after success. It makes that file
    // itself, by its name, so it cannot be a ReplacingFile, which holds its file open.
    const std::string unfinished = target.string() + "." + std::to_string(getpid()) + ".part";
    std::int32_t status = cuPackIntoZIP(original, unfinished);
    if (status == 0 && deleteOriginal != 0 &&
        !(flush(unfinished) && cuIsWholeInZIP(original, unfinished))) {
        status = kFailed;
    }
    if (status == 0 && std::rename(unfinished.c_str(), target.c_str()) != 0) status = kFailed;
    if (status != 0) {
        unlink(unfinished.c_str());
    } else if (deleteOriginal != 0) {
        (void)flush(target.parent_path());  // some file systems cannot
        fs::remove_all(original, error);
    }
    return status;
}

void cocoaUtils::addToFinderComment(TovStringRef path, TovStringRef comment)
{
    const std::string file = pathBytes(path);
    std::string whole = readFileComment(file).value_or("");
    if (!whole.empty()) whole += '\r';
    whole += displayUTF8(unitsOf(comment));
    (void)writeFileComment(file, whole);  // a comment that cannot be kept is not reported
}

TovStringRef cocoaUtils::cuGetPathFromFSRef(const FSRef* ref)
{
    if (ref == nullptr || ref->path.size() > kMaxPathLength) return nullptr;
    return feGetPathFromFSRef(ref, 0);
}

QPixmap cocoaUtils::convertCGImageRefToNSImage(const QImage& bitmap)
{
    QPixmap image;
    try {
        if (bitmap.isNull()) return image;
        image = QPixmap(bitmap.width(), bitmap.height());
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.drawImage(QRect(0, 0, bitmap.width(), bitmap.height()), bitmap);
    } catch (const std::exception&) {
        // What has been drawn so far is the result.
    }
    return image;
}

QImage cocoaUtils::cuConvertNSImageToCGImageRef(const QPixmap& image)
{
    QImage bitmap = image.toImage();
    bitmap.setDevicePixelRatio(1);  // a bitmap counts pixels
    return bitmap;
}

QPixmap cocoaUtils::earthMapImage(double /*latitude*/, double /*longi*/)
{
    return {};
}

void* cocoaUtilsLaunch()
{
    if (pool != nullptr) return pool;
    pool = new ToolkitPool;
    if (QCoreApplication::instance() == nullptr) {
        if (!hasDisplay()) qputenv("QT_QPA_PLATFORM", "offscreen");
        pool->application = std::make_unique<QApplication>(pool->argumentCount, pool->arguments);
        pool->application->setQuitOnLastWindowClosed(false);
    }
    return pool;
}

void cocoaUtilsQuit()
{
    delete pool;
    pool = nullptr;
}
