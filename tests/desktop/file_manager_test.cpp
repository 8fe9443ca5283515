// Showing a file in the file manager, and in a program of the desktop where that cannot.

#include "desktop/file_manager.h"

#include "tests/desktop/bus_programs.h"
#include "tests/support/event_loop.h"

#include <gtest/gtest.h>

#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <memory>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
const QString kService = QStringLiteral("org.freedesktop.FileManager1");

class RecordingOpener final : public UrlOpener {
public:
    bool open(const QByteArray& url) override
    {
        urls.push_back(url.toStdString());
        return true;
    }
    std::vector<std::string> urls;
};

// Replies on the bus as a file manager does, or with an error, and records the calls.
class FileManager : public QDBusVirtualObject {
public:
    explicit FileManager(bool isAble) : program_(QStringLiteral("files")), isAble_(isAble)
    {
        bus_.registerVirtualObject(QStringLiteral("/org/freedesktop/FileManager1"), this);
        bus_.registerService(kService);
    }
    ~FileManager() override
    {
        bus_.unregisterService(kService);
        bus_.unregisterObject(QStringLiteral("/org/freedesktop/FileManager1"));
    }
    QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        calls.push_back(message.member().toStdString() + " " +
                        message.arguments().at(0).toStringList().join(u' ').toStdString());
        connection.send(isAble_ ? message.createReply()
                                : message.createErrorReply(QDBusError::Failed, QString()));
        return true;
    }
    std::vector<std::string> calls;

private:
    test::Program program_;
    QDBusConnection bus_ = program_.connection();
    bool isAble_;
};
}  // namespace

TEST(showInFileManager, hasTheFileSelected)
{
    FileManager files(true);
    RecordingOpener opener;
    QObject context;
    showInFileManager("/home/a b/\xFC.kml", opener, &context);
    ASSERT_TRUE(test::waitUntil([&] { return !files.calls.empty(); }));
    EXPECT_EQ(files.calls, std::vector<std::string>{"ShowItems file:///home/a%20b/%FC.kml"});
    EXPECT_TRUE(test::waitUntil([&] { return context.children().isEmpty(); }));
    EXPECT_EQ(opener.urls, std::vector<std::string>());
}

TEST(showInFileManager, opensTheFolderWhereNoFileManagerIsOnTheBus)
{
    RecordingOpener opener;
    QObject context;
    showInFileManager("/home/a b/x.kml", opener, &context);
    ASSERT_TRUE(test::waitUntil([&] { return !opener.urls.empty(); }));
    EXPECT_EQ(opener.urls, std::vector<std::string>{"file:///home/a%20b/"});
    showInFileManager("/x.kml", opener, &context);
    ASSERT_TRUE(test::waitUntil([&] { return opener.urls.size() > 1; }));
    EXPECT_EQ(opener.urls.back(), "file:///");
}

TEST(showInFileManager, opensTheFolderWhereTheFileManagerCannot)
{
    FileManager files(false);
    RecordingOpener opener;
    QObject context;
    showInFileManager("/home/x.kml", opener, &context);
    ASSERT_TRUE(test::waitUntil([&] { return !opener.urls.empty(); }));
    EXPECT_EQ(opener.urls, std::vector<std::string>{"file:///home/"});
}

TEST(showInFileManager, opensNothingForWhomIsGone)
{
    RecordingOpener opener;
    auto context = std::make_unique<QObject>();
    showInFileManager("/home/x.kml", opener, context.get());
    context.reset();
    // A later call is answered after the first one.
    QObject other;
    RecordingOpener later;
    showInFileManager("/home/x.kml", later, &other);
    ASSERT_TRUE(test::waitUntil([&] { return !later.urls.empty(); }));
    EXPECT_EQ(opener.urls, std::vector<std::string>());
}
