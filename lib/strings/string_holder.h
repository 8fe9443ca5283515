// Owns one reference to a text while it is being worked on.

#pragma once

#include "lib/objects/object_holder.h"
#include "lib/objects/string.h"

using StringHolder = ObjectHolder<TovStringRef>;
