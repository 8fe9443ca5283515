// Looks at items for the event loop, where a disk may not answer: openers do the looking.
//
//     cuLookAtItems({path}, this, [this](const std::vector<ItemFacts>& items, int error) {
//         if (error != 0) return say(error);
//         if (items.front().isThere) ...
//     });

#pragma once

#include "opener/item_facts.h"

#include <QObject>

#include <functional>
#include <string>
#include <vector>

namespace pinorama {

// Receives what is at each of the paths, in their order; or nothing and an errno:
//
//   ETIMEDOUT     their disk has not answered for 3 seconds, or is left alone since it never does
//   ENAMETOOLONG  one of them is too long for the system, or all together for a request
//   EIO           no opener can be started
using TakeItems = std::function<void(const std::vector<ItemFacts>& items, int error)>;

// Has `paths`, in the bytes of the system, looked at. `take` is called once: before this returns if
// the answer comes within 40 milliseconds, as it usually does, else from the event loop. It is not
// called any more when `owner` is gone.
void cuLookAtItems(std::vector<std::string> paths, QObject* owner, TakeItems take);

}  // namespace pinorama
