#include "lib/ui/strings_table.h"

#include "base/ascii.h"
#include "base/utf8.h"

#include <algorithm>
#include <cstdint>
#include <span>

using namespace pinorama;

namespace {
constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";

// Walks over the bytes of a table. A failed step leaves the position anywhere inside the damaged
// line; the caller goes on with skipLineAt.
class Scanner {
public:
    explicit Scanner(std::string_view bytes) : bytes_(bytes) {}

    bool isAtEnd() const { return next_ == bytes_.size(); }
    std::size_t position() const { return next_; }

    // Goes to the start of the line that follows the one with `position`.
    void skipLineAt(std::size_t position)
    {
        const std::size_t end = bytes_.find('\n', position);
        next_ = end == std::string_view::npos ? bytes_.size() : end + 1;
    }

    // Passes blanks, line ends and comments. A comment that is never closed goes on to the end.
    void skipBlanks()
    {
        while (!isAtEnd()) {
            const std::string_view rest = bytes_.substr(next_);
            if (rest.starts_with("//")) {
                skipLineAt(next_);
            } else if (rest.starts_with("/*")) {
                const std::size_t end = bytes_.find("*/", next_ + 2);
                next_ = end == std::string_view::npos ? bytes_.size() : end + 2;
            } else if (std::string_view(" \t\r\n\v\f").find(rest.front()) != rest.npos) {
                next_++;
            } else {
                return;
            }
        }
    }

    bool readCharacter(char wanted)
    {
        if (isAtEnd() || bytes_[next_] != wanted) return false;
        next_++;
        return true;
    }

    // Reads a text in double quotes.
    bool readQuoted(std::u16string* text)
    {
        text->clear();
        if (!readCharacter('"')) return false;
        while (!isAtEnd() && bytes_[next_] != '\n') {
            if (readCharacter('"')) return true;
            if (!(readCharacter('\\') ? readEscape(text) : readPlain(text))) return false;
        }
        return false;
    }

private:
    bool readPlain(std::u16string* text)
    {
        const std::size_t end = std::min(bytes_.find_first_of("\"\\\n", next_), bytes_.size());
        const std::string_view plain = bytes_.substr(next_, end - next_);
        const std::int32_t units = countUnitsOfUTF8(plain);
        if (units < 0) return false;
        const std::size_t start = text->size();
        text->resize(start + static_cast<std::size_t>(units));
        const std::span<char16_t> added = std::span(*text).subspan(start);
        text->resize(start + decodeUTF8(plain, added));
        next_ = end;
        return true;
    }

    bool readEscape(std::u16string* text)
    {
        if (isAtEnd()) return false;
        switch (bytes_[next_++]) {
        case '"': *text += u'"'; return true;
        case '\\': *text += u'\\'; return true;
        case 'n': *text += u'\n'; return true;
        case 't': *text += u'\t'; return true;
        case 'r': *text += u'\r'; return true;
        case 'U': return readUnit(text);
        default: return false;
        }
    }

    bool readUnit(std::u16string* text)
    {
        int unit = 0;
        for (int i = 0; i < 4; i++) {
            const int digit = isAtEnd() ? -1 : hexDigitValue(bytes_[next_]);
            if (digit < 0) return false;
            unit = unit * 16 + digit;
            next_++;
        }
        *text += static_cast<char16_t>(unit);
        return true;
    }

    std::string_view bytes_;
    std::size_t next_ = 0;
};

bool readEntry(Scanner* scanner, std::u16string* key, std::u16string* value)
{
    if (!scanner->readQuoted(key)) return false;
    scanner->skipBlanks();
    if (!scanner->readCharacter('=')) return false;
    scanner->skipBlanks();
    if (!scanner->readQuoted(value)) return false;
    scanner->skipBlanks();
    return scanner->readCharacter(';');
}
}  // namespace

StringsTable::StringsTable(std::string_view utf8)
{
    if (utf8.starts_with(kByteOrderMark)) utf8.remove_prefix(kByteOrderMark.size());
    Scanner scanner(utf8);
    std::u16string key;
    std::u16string value;
    std::size_t line = 1;
    std::size_t counted = 0;  // line ends before this position are in `line`
    for (scanner.skipBlanks(); !scanner.isAtEnd(); scanner.skipBlanks()) {
        const std::size_t start = scanner.position();
        if (readEntry(&scanner, &key, &value)) {
            values_.insert_or_assign(key, value);
        } else {
            line += static_cast<std::size_t>(
                std::count(utf8.begin() + static_cast<std::ptrdiff_t>(counted),
                           utf8.begin() + static_cast<std::ptrdiff_t>(start), '\n'));
            counted = start;
            damagedLines_.push_back(line);
            scanner.skipLineAt(start);
        }
    }
}

std::optional<std::u16string_view> StringsTable::find(std::u16string_view key) const
{
    const auto found = values_.find(key);
    if (found == values_.end()) return std::nullopt;
    return found->second;
}
