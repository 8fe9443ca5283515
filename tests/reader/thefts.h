// What a fault tries to get hold of, or to do, outside the reader.

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

// What a fault got hold of: told as a caption, so that a test sees it. Nothing if it failed.
using Loot = std::optional<std::u16string>;

// These bytes as the loot of a fault.
Loot text(std::string_view bytes);

// The theft with this name, which takes the argument of the fault; null if no theft is called so.
std::function<Loot(const std::string& argument)> theftCalled(const std::string& name);
