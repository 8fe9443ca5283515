// What a file manager's catalogue records about an item besides size and dates: whose it is and who
// may do what with it, in the numbers that the debug log writes.

#pragma once

#include <cstdint>
#include <string>

namespace pinorama {

struct CatalogueFacts {
    std::uint16_t nodeFlags;       // 0x0010 a folder, 0x0001 locked against every change
    std::uint16_t userPrivileges;  // what the user may not: 0x01 search, 0x02 read, 0x04 change;
                                   // 0x80 another user owns it
    std::uint32_t ownerID;
    std::uint32_t groupID;
    std::uint8_t userAccess;  // what the user may: 4 read, 2 write, 1 execute or search
    std::uint16_t mode;       // type and permission bits as in stat(2)
};

// The facts of the item at `path`, of a link itself rather than of what it leads to. All 0 when
// there is no such item or it cannot be examined.
CatalogueFacts catalogueFactsOf(const std::string& path);

}  // namespace pinorama
