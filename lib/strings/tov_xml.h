// One-line XML elements: writing them, and finding the content of named ones by plain search. This
// is no XML parser: a tag has no attributes, entities stay as they are, and nesting is not
// followed. Searching is that of TovStringPosition with case.

#pragma once

#include <cstdint>

#include "lib/objects/string.h"

// Append "<tag>value</tag>" and a line feed to the mutable text that `target` points to; a null
// value is written like an empty one. The value goes in raw: "&" and "<" are not escaped. A null
// target or tag, an immutable target and a lack of memory change nothing.
void TovStringAppendStringAsXMLTag(TovStringRef* target, TovStringRef value, TovStringRef tag);
void TovStringAppendNumberAsXMLTag(TovStringRef* target, std::uint64_t value, TovStringRef tag);

// Returns a new text of what stands between the first "<tag>" and the first "</tag>" after it;
// null when either is missing, for null, and if memory runs out. "<tag a='b'>" is another tag.
[[nodiscard]] TovStringRef TovStringSimpleXMLParserFindData(TovStringRef text, TovStringRef tag);

// The same for the n-th "<tag>", counted from 1. Elements within elements count as well, and only
// the n-th one has to be closed. Null for n = 0.
[[nodiscard]] TovStringRef TovStringSimpleXMLParserFindNthData(TovStringRef text, TovStringRef tag,
                                                               std::uint32_t n);

// Calls `callback` with the content of each "<tag>" in order, up to the first that is not closed.
//
//   callback  gets the content as a text that is released when it returns; to keep it, it retains
//             it. May be null: nothing happens then.
//   context   passed through unchanged.
//
// The search continues after the opening tag, so that an element within one of the same name is
// seen twice: as part of the outer content, which ends at the inner closing tag, and on its own.
void TovStringSimpleXMLParserForEachItem(TovStringRef text, TovStringRef tag,
                                         void (*callback)(TovStringRef item, void* context),
                                         void* context);
