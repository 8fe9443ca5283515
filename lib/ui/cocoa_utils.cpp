#include "lib/ui/cocoa_utils.h"

#include "lib/files/file_reference.h"
#include "lib/ui/qt_text.h"
#include "lib/ui/view_texts.h"
#include "platform/files/file_comment.h"
#include "platform/files/path_text.h"
#include "platform/system/child_process.h"
#include "platform/text/utf8.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include <unistd.h>

namespace {
constexpr std::size_t kLongestPath = 2048;  // bytes

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

// "/folder/name/" -> "/folder/name"
std::filesystem::path withoutTrailingSlash(const std::filesystem::path& path)
{
    return path.has_filename() ? path : path.parent_path();
}
}  // namespace

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
    namespace fs = std::filesystem;
    constexpr std::int32_t kFailed = 1;
    std::error_code error;
    const fs::path original =
        withoutTrailingSlash(fs::absolute(platform::pathBytes(source), error));
    if (error || targetPath == nullptr) return kFailed;

    // The archiver leaves an empty archive behind when the source is missing: it works on a file of
    // its own beside the target, which takes the target's place only after success.
    const std::string target = platform::pathBytes(targetPath);
    const std::string unfinished = target + "." + std::to_string(getpid()) + ".part";

    // Names that are no plain ASCII need a UTF-8 locale.
    std::int32_t status =
        platform::runAndWait({"bsdtar", "--format=zip", "-cf", unfinished, "-C",
                              original.parent_path().string(), "--", original.filename().string()},
                             {"LC_ALL=C.UTF-8"});
    if (status == 0 && std::rename(unfinished.c_str(), target.c_str()) != 0) status = kFailed;
    if (status != 0) {
        unlink(unfinished.c_str());
    } else if (deleteOriginal != 0) {
        fs::remove_all(original, error);
    }
    return status;
}

void cocoaUtils::addToFinderComment(TovStringRef path, TovStringRef comment)
{
    const std::string file = platform::pathBytes(path);
    std::string whole = platform::readFileComment(file).value_or("");
    if (!whole.empty()) whole += '\r';
    whole += platform::displayUTF8(platform::unitsOf(comment));
    (void)platform::writeFileComment(file, whole);  // a comment that cannot be kept is not reported
}

TovStringRef cocoaUtils::cuGetPathFromFSRef(const FSRef* ref)
{
    if (ref == nullptr || ref->path.size() > kLongestPath) return nullptr;
    return feGetPathFromFSRef(ref, 0);
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
