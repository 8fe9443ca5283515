#include "nearby/picture_index.h"

#include "base/user_folders.h"

#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>

#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr int kWaitForWriter = 3000;  // milliseconds
constexpr int kLayout = 2;            // in user_version; another one is made anew
// Of a new file. The block of a folder with a thousand pictures takes four pages of this size.
constexpr char kSetPageSize[] = "PRAGMA page_size = 16384";
constexpr char kMakeTables[] =
    "CREATE TABLE IF NOT EXISTS folders (path BLOB PRIMARY KEY, pictures BLOB) WITHOUT ROWID;"
    "PRAGMA user_version = 2;";

struct DatabaseCloser {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
};
struct StatementCloser {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, DatabaseCloser>;
using Statement = std::unique_ptr<sqlite3_stmt, StatementCloser>;

Database openDatabase(const std::string& path, int flags)
{
    sqlite3* opened = nullptr;
    const int status = sqlite3_open_v2(path.c_str(), &opened, flags, nullptr);
    Database database(opened);  // has to be closed even if it could not be opened
    if (status != SQLITE_OK) return nullptr;
    sqlite3_busy_timeout(opened, kWaitForWriter);
    return database;
}

Statement prepare(sqlite3* database, const char* sql)
{
    sqlite3_stmt* statement = nullptr;
    (void)sqlite3_prepare_v2(database, sql, -1, &statement, nullptr);
    return Statement(statement);
}

bool execute(sqlite3* database, const char* sql)
{
    return sqlite3_exec(database, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

bool bindBlob(sqlite3_stmt* statement, int place, std::string_view bytes)
{
    // An empty block is not NULL, and SQLite takes a null pointer for that.
    return sqlite3_bind_blob64(statement, place, bytes.empty() ? "" : bytes.data(), bytes.size(),
                               SQLITE_STATIC) == SQLITE_OK;
}

// The layout of an index; -1 if it is damaged or is none.
int layoutOf(sqlite3* database)
{
    const Statement query = prepare(database, "PRAGMA user_version");
    if (!query || sqlite3_step(query.get()) != SQLITE_ROW) return -1;
    return sqlite3_column_int(query.get(), 0);
}

bool writeInto(sqlite3* database, std::span<const PictureIndex::Change> changes)
{
    if (!execute(database, kSetPageSize)) return false;
    if (!execute(database, "BEGIN IMMEDIATE") || !execute(database, kMakeTables)) return false;
    const Statement put =
        prepare(database, "INSERT OR REPLACE INTO folders (path, pictures) VALUES (?, ?)");
    if (!put) return false;
    for (const auto& [folder, block] : changes) {
        if (!bindBlob(put.get(), 1, folder) || !bindBlob(put.get(), 2, block)) return false;
        if (sqlite3_step(put.get()) != SQLITE_DONE) return false;
        sqlite3_reset(put.get());
    }
    return execute(database, "COMMIT");
}

// Folders on the way to the index belong to the user alone: it says where pictures were taken.
bool makeFolderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == path.npos || slash == 0 || makeFolders(path.substr(0, slash), 0700);
}

bool isOnNetwork(std::string folder)
{
    struct statfs status {};
    // The first folder above it that is there.
    while (statfs(folder.c_str(), &status) != 0) {
        const std::size_t slash = folder.rfind('/');
        if (slash == folder.npos || slash == 0) return false;
        folder.resize(slash);
    }
    constexpr std::array<std::uint32_t, 9> kNetworks = {
        NFS_SUPER_MAGIC,        SMB_SUPER_MAGIC,  0xff534d42 /* CIFS */,
        0xfe534d42 /* SMB 2 */, CODA_SUPER_MAGIC, AFS_SUPER_MAGIC,
        0x00c36400 /* Ceph */,  V9FS_MAGIC,       0x65735546 /* FUSE: SSHFS and others */};
    for (const std::uint32_t network : kNetworks) {
        if (static_cast<std::uint32_t>(status.f_type) == network) return true;
    }
    return false;
}
}  // namespace

PictureIndex::PictureIndex(const std::string& path)
{
    // SQLite would make a file of an empty name.
    Database database = path.empty() ? nullptr : openDatabase(path, SQLITE_OPEN_READONLY);
    if (!database || layoutOf(database.get()) != kLayout) return;
    query_ = prepare(database.get(), "SELECT pictures FROM folders WHERE path = ?").release();
    database_ = database.release();
}

PictureIndex::~PictureIndex()
{
    sqlite3_finalize(query_);
    sqlite3_close(database_);
}

std::string PictureIndex::read(const std::string& folder)
{
    if (query_ == nullptr || !bindBlob(query_, 1, folder)) return {};
    std::string block;
    if (sqlite3_step(query_) == SQLITE_ROW) {
        const auto length = static_cast<std::size_t>(sqlite3_column_bytes(query_, 0));
        const void* bytes = sqlite3_column_blob(query_, 0);
        if (bytes != nullptr) block.assign(static_cast<const char*>(bytes), length);
    }
    sqlite3_reset(query_);
    return block;
}

bool PictureIndex::write(const std::string& path, std::span<const Change> changes)
{
    if (path.empty() || !makeFolderOf(path)) return false;
    constexpr int kFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    // A second time if what was there is damaged or of another layout.
    for (const bool isLast : {false, true}) {
        const mode_t mask = umask(0077);
        const Database database = openDatabase(path, kFlags);
        const int layout = database ? layoutOf(database.get()) : -1;
        const bool isOurs = layout == kLayout || layout == 0;
        const bool isWritten = isOurs && writeInto(database.get(), changes);
        (void)umask(mask);
        const int problem = database ? sqlite3_errcode(database.get()) : SQLITE_CANTOPEN;
        const bool isDamaged = database && ((layout > 0 && !isOurs) || problem == SQLITE_NOTADB ||
                                            problem == SQLITE_CORRUPT);
        if (isWritten || isLast || !isDamaged) return isWritten;
        (void)unlink(path.c_str());
        (void)unlink((path + "-journal").c_str());
    }
    return false;
}

std::string defaultIndexPath()
{
    const std::string folder = cacheFolder();
    if (folder.empty() || isOnNetwork(folder)) return {};
    return folder + "/pinorama/pictures.sqlite";
}

}  // namespace pinorama
