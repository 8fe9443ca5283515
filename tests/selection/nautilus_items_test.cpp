// The items of Nautilus, which versions from 50 on call "a.jpg. File" on the accessibility bus.

#include "selection/file_manager_kind.h"
#include "selection/frame_reader.h"
#include "selection/managers/nautilus.h"
#include "tests/selection/fake_file_manager.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <QDBusConnection>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using namespace std::chrono_literals;
using test::FakeFileManager;
using Kind = FakeFileManager::Kind;

constexpr auto kLimit = 30s;  // no measure of speed

// The name of the file that is followed when one item is selected; empty if none is.
std::string followed(const std::vector<std::string>& files, const QString& told,
                     const QString& label)
{
    const test::TemporaryFolder folder;
    for (const std::string& file : files) (void)folder.write(file, "x");
    FakeFileManager manager(Kind::selection, folder.path(), {label.isEmpty() ? told : label});
    manager.useObjectsOfGtk4();
    if (!label.isEmpty()) {
        manager.moveNameInside(0);
        manager.change(FakeFileManager::kFirstItem,
                       [&](test::FakeObject& item) { item.name = told; });
    }
    manager.select({0});
    FrameReader frame(manager.object(FakeFileManager::kFrame), *fileManagerKind("nautilus"), 1,
                      false);
    DBusQuery query(QDBusConnection::sessionBus(), kLimit);
    query.start(frame.findAndRead(query));
    EXPECT_TRUE(query.runUntil(Clock::now() + kLimit));
    EXPECT_TRUE(frame.isFound());
    if (!frame.paths() || frame.paths()->size() != 1) return {};
    return frame.paths()->front().substr(folder.path().size() + 1);
}
}  // namespace

TEST(NautilusItems, areFoundByTheNameInWhatTheyAreCalled)
{
    if (!QDBusConnection::sessionBus().isConnected())
        GTEST_SKIP() << "no session bus can be started";
    const struct {
        const char* what;
        std::vector<std::string> files;
        const char* told;
        const char* label;  // inside the item; empty for none
        const char* followed;
    } rows[] = {
        {"up to 49", {"a.jpg"}, "a.jpg", "", "a.jpg"},
        {"with a pause in its name", {"St. John.jpg", "x"}, "St. John.jpg", "", "St. John.jpg"},
        {"from 50 on", {"a.jpg", "b.jpg"}, "b.jpg. File", "", "b.jpg"},
        {"starred", {"a.jpg", "b.jpg"}, "b.jpg. File. Starred", "", "b.jpg"},
        {"in German", {"a.jpg", "b.jpg"}, "b.jpg. Datei. Favorit", "", "b.jpg"},
        {"both", {"St. John.jpg", "x"}, "St. John.jpg. File", "", "St. John.jpg"},
        {"one of two", {"a.jpg", "a.jpg. File"}, "a.jpg. File", "", ""},
        {"the other of two", {"a.jpg", "a.jpg. File"}, "a.jpg. File. File", "", ""},
        {"in a list", {"a.jpg", "a.jpg. File"}, "a.jpg. File", "a.jpg", "a.jpg"},
        {"in a list of 48", {"a", "a. b.jpg"}, "a. b.jpg", "a. b.jpg", "a. b.jpg"},
        {"that is gone", {"a"}, "a. b.jpg", "a. b.jpg", ""},
        {"not in the folder", {"x"}, "a.jpg. File", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(
            followed(row.files, QString::fromLatin1(row.told), QString::fromLatin1(row.label)),
            row.followed);
    }
}

TEST(NautilusItems, areCalledByNamesThatAreNotEmpty)
{
    const NautilusWindow window(1);
    EXPECT_EQ(window.namesWithin(QString()), std::vector<QString>{});
    EXPECT_EQ(window.namesWithin(QStringLiteral(". File")), std::vector<QString>{});
    EXPECT_EQ(window.namesWithin(QStringLiteral("a.b")), std::vector<QString>{});
    EXPECT_EQ(window.namesWithin(QStringLiteral("a. b. c. d")),
              (std::vector<QString>{QStringLiteral("a. b. c"), QStringLiteral("a. b")}));
}
