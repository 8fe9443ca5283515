#include "places/words/table_text.h"

#include "lib/strings/string_holder.h"
#include "lib/strings/tov_bytes.h"
#include "lib/ui/string_tables.h"

#include <cstdint>
#include <new>

using namespace pinorama;

std::u16string pinorama::take(TovStringRef text)
{
    const StringHolder holder(text);
    if (!holder) throw std::bad_alloc();
    return std::u16string(unitsOf(holder.get()));
}

std::u16string pinorama::unitsOfUTF8(std::string_view bytes)
{
    return take(TovStringFromUTF8(bytes.data(), static_cast<std::int32_t>(bytes.size())));
}

std::u16string pinorama::tableText(std::string_view key)
{
    const StringHolder keyText(
        TovStringFromUTF8(key.data(), static_cast<std::int32_t>(key.size())));
    return take(iuCopyLocalizedString(keyText.get(), keyText.get(), kPlacesTable));
}

TovStringRef pinorama::fill(std::string_view key, std::initializer_list<Filling> fillings)
{
    const std::u16string pattern = tableText(key);
    std::u16string text;
    for (std::size_t at = 0; at < pattern.size();) {
        const Filling* found = nullptr;
        for (const Filling& filling : fillings) {
            const std::u16string hole = u"{" + std::u16string(filling.name) + u"}";
            if (pattern.compare(at, hole.size(), hole) == 0) found = &filling;
        }
        if (found == nullptr) {
            text.push_back(pattern[at++]);
            continue;
        }
        text += found->text;
        at += found->name.size() + 2;
    }
    return createString(text);
}
