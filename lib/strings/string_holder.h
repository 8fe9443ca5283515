// Owns one reference to a text while it is being worked on.

#pragma once

#include "platform/objects/object_holder.h"
#include "platform/objects/string.h"

using StringHolder = ObjectHolder<TovStringRef>;
